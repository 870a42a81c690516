#pragma once

#include "bowling/Pins.h"
#include "pictures/ReportPicture.h"

#include <optional>

namespace tallybrook {

/// A small rack with the pins that a ball left, and what is to be said of them.
struct RackCard {
    QString name;
    std::optional<Pins> standing;  ///< no rack where they are not known
    QString line;
    double share;  ///< of a bar, from 0 to 1
    QString rate;  ///< what stands beside the bar
};

using RackCards = std::vector<RackCard>;

/// A name for pins as a report has them: words for none and for all of them.
QString nameOfLeave(const QString& pins, const std::optional<Pins>& standing);

/// Lays cards out in rows, each a strip, below a heading. A card's spot tells of the row of its number.
Strips cardStrips(const QString& heading, const RackCards& cards, const PictureLook& look, double width);

}  // namespace tallybrook
