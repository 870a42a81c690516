#pragma once

#include "viewer/PictureLook.h"

#include <QString>
#include <functional>
#include <vector>

class QPainter;

namespace tallybrook {

/// A part of a picture that stays in one piece where pages part it. It is drawn with its upper left corner at
/// the painter's origin.
struct Strip {
    double height;
    std::function<void(QPainter& painter)> draw;
};

using Strips = std::vector<Strip>;

/// A picture for a place of any width, on any device. The first of its strips has its heading.
struct ReportPicture {
    QString name;
    QString summary;  ///< all that it shows, in words
    /// Lays it out in a width of at least PictureLook::leastWidth(). The look must outlive the strips.
    std::function<Strips(const PictureLook& look, double width)> strips;
};

/// Puts a heading into a strip, above what it has.
Strip underHeading(const QString& heading, Strip strip, const PictureLook& look, double width);

/// Room between what stands above and below.
Strip gapStrip(double height);

/// A note on what is shown, on as many lines as it takes.
Strip noteStrip(const QString& text, const PictureLook& look, double width);

/// Draws a text on one line, shortened where it is too wide.
void drawText(QPainter& painter, const QRectF& place, Qt::Alignment alignment, const QString& text,
              const QFont& font, const QColor& colour);

/// "1 game", "2 games".
QString counted(int count, const QString& one, const QString& many);

}  // namespace tallybrook
