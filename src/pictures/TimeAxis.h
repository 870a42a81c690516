#pragma once

#include "pictures/ReportPicture.h"
#include "readers/Days.h"

#include <QRectF>
#include <QString>
#include <chrono>
#include <vector>

namespace tallybrook {

/// A time from left to right: a range of days, of which a view shows a part.
class TimeAxis {
public:
    /// From the first of the events' days to the last, with some room before and behind them.
    TimeAxis(Day first, Day last, const PictureView& view, const QRectF& plot);

    [[nodiscard]] double placeOf(Day day) const;
    /// The first and the last day that is in sight.
    [[nodiscard]] Day first() const { return dayAt(0); }
    [[nodiscard]] Day last() const { return dayAt(1); }

    /// A day with a name at the axis.
    struct Tick {
        Day day;
        QString name;
    };
    /// The ticks in sight, as many as have room where each takes a width.
    [[nodiscard]] std::vector<Tick> ticks(double widthOfTick) const;

private:
    [[nodiscard]] Day dayAt(double share) const;
    [[nodiscard]] std::vector<Tick> ticksEvery(int months) const;

    double begin_;  // days since the epoch
    double span_;   // days
    QRectF plot_;
};

}  // namespace tallybrook
