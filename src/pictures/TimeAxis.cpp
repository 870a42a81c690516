#include "pictures/TimeAxis.h"

#include <array>
#include <cmath>

namespace tallybrook {

namespace {

constexpr int kMonthsOfYear = 12;

/// The steps from tick to tick, in months.
constexpr std::array kTickMonths{1, 3, 12, 24, 60, 120, 240, 600, 1200, 6000, 120000};

double numberOf(Day day) {
    return static_cast<double>(day.time_since_epoch().count());
}

int monthsOf(Day day) {
    const std::chrono::year_month_day date(day);
    return static_cast<int>(date.year()) * kMonthsOfYear +
           static_cast<int>(static_cast<unsigned>(date.month())) - 1;
}

std::chrono::year_month monthAt(int months) {
    const int month = months % kMonthsOfYear;
    return std::chrono::year(months / kMonthsOfYear) / std::chrono::month(static_cast<unsigned>(month + 1));
}

}  // namespace

TimeAxis::TimeAxis(Day first, Day last, const PictureView& view, const QRectF& plot) : plot_(plot) {
    constexpr double kLeastRoom = 10;  // days
    constexpr double kShareOfRoom = 0.02;
    const double room = std::max(kShareOfRoom * (numberOf(last) - numberOf(first)), kLeastRoom);
    const double whole = numberOf(last) - numberOf(first) + 2 * room;
    begin_ = numberOf(first) - room + view.from * whole;
    span_ = view.span() * whole;
}

double TimeAxis::placeOf(Day day) const {
    return plot_.left() + (numberOf(day) - begin_) / span_ * plot_.width();
}

Day TimeAxis::dayAt(double share) const {
    return Day(std::chrono::days(std::lround(begin_ + share * span_)));
}

std::vector<TimeAxis::Tick> TimeAxis::ticksEvery(int months) const {
    std::vector<Tick> ticks;
    for (int month = (monthsOf(first()) / months) * months; month <= monthsOf(last()); month += months) {
        const Day day(monthAt(month) / 1);
        if (day < first())
            continue;
        const bool isYear = months >= kMonthsOfYear;
        ticks.push_back({day, isYear ? QString::number(month / kMonthsOfYear) : monthText(monthAt(month))});
    }
    return ticks;
}

std::vector<TimeAxis::Tick> TimeAxis::ticks(double widthOfTick) const {
    constexpr double kDaysOfMonth = 30.4;
    const double months = span_ / kDaysOfMonth;
    for (const int step : kTickMonths) {
        if (months / step * widthOfTick <= plot_.width())
            return ticksEvery(step);
    }
    return {};
}

}  // namespace tallybrook
