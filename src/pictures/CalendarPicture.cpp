#include "figures/Trend.h"
#include "pictures/Pictures.h"
#include "readers/Days.h"
#include "style/Colours.h"

#include <QPainter>
#include <algorithm>
#include <array>
#include <memory>

namespace tallybrook {

namespace {

constexpr const char* kCalendarHeading = "The year at a glance";
constexpr std::size_t kClasses = 5;
constexpr int kDaysOfWeek = 7;

using Nights = std::vector<NightOfGames>;

/// The nights of a year, which stand together in the list of all.
struct YearOfNights {
    std::chrono::year year;
    std::size_t first;
    std::size_t end;
};

/// All that the picture shows.
struct Calendar {
    Nights nights;
    std::vector<double> bounds;       ///< of the classes
    std::vector<YearOfNights> years;  ///< the last one first

    /// How much of the colour and the size a class has: all of both where it is the only one.
    [[nodiscard]] double shareOf(std::size_t number) const {
        return static_cast<double>(number + 1) / static_cast<double>(bounds.size() + 1);
    }
    [[nodiscard]] std::size_t classOf(const NightOfGames& night) const {
        return static_cast<std::size_t>(std::ranges::upper_bound(bounds, night.total.average()) -
                                        bounds.begin());
    }
};

std::chrono::year yearOf(Day day) {
    return std::chrono::year_month_day(day).year();
}

Calendar calendarOf(const BowledEvents& events) {
    Calendar calendar{nightsOf(events), {}, {}};
    calendar.bounds = classBounds(calendar.nights, kClasses);
    for (std::size_t night = 0; night < calendar.nights.size(); ++night) {
        const std::chrono::year year = yearOf(calendar.nights[night].day);
        if (calendar.years.empty() || calendar.years.back().year != year)
            calendar.years.push_back({year, night, night});
        calendar.years.back().end = night + 1;
    }
    std::ranges::reverse(calendar.years);
    return calendar;
}

QString averageText(double average) {
    return QString::number(average, 'f', 1);
}

QString wordsOn(const Calendar& calendar, const YearOfNights& year) {
    PinsOverGames total;
    for (std::size_t night = year.first; night < year.end; ++night) {
        total.pins += calendar.nights[night].total.pins;
        total.games += calendar.nights[night].total.games;
    }
    return counted(static_cast<int>(year.end - year.first), "night", "nights") + ", " +
           counted(static_cast<int>(total.games), "game", "games") + ", average " +
           averageText(total.average());
}

// --- Where the days stand ----------------------------------------------------------------------------------

/// The days of a year in weeks from left to right; where there is no room the second half stands below the
/// first one.
class DayGrid {
public:
    DayGrid(const PictureLook& look, double width) : line_(look.lineHeight()) {
        const double whole = width / kWeeks;
        parts_ = whole >= kLeastDay * look.digit() ? 1 : 2;
        day_ = std::min(width / (parts_ == 1 ? kWeeks : kWeeksOfHalf), kLargestDay * look.digit());
    }

    /// The place of a day below the words on its year.
    [[nodiscard]] QRectF place(Day day) const {
        const Day begin = beginOf(day);
        const int weekday = weekdayOf(day);
        const int week = static_cast<int>((day - begin).count() + weekdayOf(begin)) / kDaysOfWeek;
        return {week * day_, topOf(day) + line_ + weekday * day_, day_, day_};
    }
    /// The place of a month's name.
    [[nodiscard]] QRectF placeOfName(std::chrono::year_month month) const {
        const Day first(month / 1);
        return {place(first).left() + day_ / 4, topOf(first), 5 * day_, line_};
    }
    [[nodiscard]] double height() const { return parts_ * partHeight() + 1.4 * line_; }

private:
    static constexpr double kWeeks = 54;
    static constexpr double kWeeksOfHalf = 28;
    static constexpr double kLeastDay = 0.95;
    static constexpr double kLargestDay = 1.7;

    static int weekdayOf(Day day) { return static_cast<int>(std::chrono::weekday(day).c_encoding()); }
    [[nodiscard]] bool isBelow(Day day) const {
        return parts_ == 2 && std::chrono::year_month_day(day).month() >= std::chrono::July;
    }
    [[nodiscard]] Day beginOf(Day day) const {
        return Day(yearOf(day) / (isBelow(day) ? std::chrono::July : std::chrono::January) / 1);
    }
    [[nodiscard]] double partHeight() const { return line_ + kDaysOfWeek * day_ + line_ / 2; }
    [[nodiscard]] double topOf(Day day) const { return 1.2 * line_ + (isBelow(day) ? partHeight() : 0); }

    double line_;
    double day_;
    int parts_;
};

/// A class is told by the size of its squares too.
void drawNight(QPainter& painter, double share, const QRectF& day, const PictureLook& look) {
    constexpr double kSmallest = 0.4;
    constexpr double kLargest = 0.92;
    const double side = day.width() * (kSmallest + (kLargest - kSmallest) * share);
    painter.setPen(Qt::NoPen);
    painter.setBrush(contrasting(between(look.ground(), look.fill(), share), look.ground(), 2));
    painter.drawRect(QRectF(day.center() - QPointF(side / 2, side / 2), QSizeF(side, side)));
}

/// A day without games.
void drawDay(QPainter& painter, const QRectF& day, const QColor& colour) {
    constexpr double kSide = 0.16;
    const double side = kSide * day.width();
    painter.fillRect(QRectF(day.center() - QPointF(side / 2, side / 2), QSizeF(side, side)), colour);
}

void drawYear(QPainter& painter, const Calendar& calendar, const YearOfNights& year, const PictureLook& look,
              double width) {
    const DayGrid grid(look, width);
    const double name = look.widthOf("2026   ", true);
    const double line = look.lineHeight();
    constexpr auto kLeft = Qt::AlignLeft | Qt::AlignVCenter;
    drawText(painter, {0, 0, name, line}, kLeft, QString::number(static_cast<int>(year.year)),
             look.boldFont(), look.ink());
    drawText(painter, {name, 0, width - name, line}, kLeft, wordsOn(calendar, year), look.font(), look.ink());
    for (unsigned month = 1; month <= 12; ++month) {
        const std::chrono::year_month one = year.year / std::chrono::month(month);
        drawText(painter, grid.placeOfName(one), kLeft, monthText(one).left(3), look.smallFont(),
                 look.quiet());
    }
    std::size_t night = year.first;
    for (Day day{year.year / 1 / 1}; yearOf(day) == year.year; day += std::chrono::days(1)) {
        const bool isNight = night < year.end && calendar.nights[night].day == day;
        if (isNight)
            drawNight(painter, calendar.shareOf(calendar.classOf(calendar.nights[night++])), grid.place(day),
                      look);
        else
            drawDay(painter, grid.place(day), look.line());
    }
}

using SharedCalendar = std::shared_ptr<const Calendar>;

Strip yearStrip(const SharedCalendar& calendar, const YearOfNights& year, const PictureLook& look,
                double width) {
    const DayGrid grid(look, width);
    std::vector<Spot> spots;
    for (std::size_t night = year.first; night < year.end; ++night)
        spots.push_back({grid.place(calendar->nights[night].day), night});
    return {grid.height(),
            [calendar, year, &look, width](QPainter& painter) {
                drawYear(painter, *calendar, year, look, width);
            },
            spots};
}

/// What a class holds, as in "141.2 to 150.3".
QString nameOfClass(const Calendar& calendar, std::size_t number) {
    const std::vector<double>& bounds = calendar.bounds;
    if (bounds.empty())
        return "A night with games";
    if (number == 0)
        return "under " + averageText(bounds.front());
    if (number == bounds.size())
        return averageText(bounds.back()) + " and more";
    return averageText(bounds[number - 1]) + " to " + averageText(bounds[number]);
}

Strip legendStrip(const SharedCalendar& calendar, const PictureLook& look, double width) {
    const double line = look.lineHeight();
    const double entry = look.widthOf("141.2 to 150.3", false) + 3.5 * look.digit();
    const auto perRow = std::max(static_cast<std::size_t>(width / entry), std::size_t{1});
    const std::size_t count = calendar->bounds.size() + 1;
    const std::size_t rows = (count + perRow - 1) / perRow;
    return {(static_cast<double>(rows) + 0.5) * line,
            [calendar, &look, line, entry, perRow, count](QPainter& painter) {
                for (std::size_t number = 0; number < count; ++number) {
                    const std::size_t row = number / perRow;
                    const QPointF corner(static_cast<double>(number % perRow) * entry,
                                         static_cast<double>(row) * line);
                    const double side = 1.7 * look.digit();
                    drawNight(painter, calendar->shareOf(number), QRectF(corner, QSizeF(side, line)), look);
                    drawText(painter, {corner.x() + side + look.digit() / 2, corner.y(), entry, line},
                             Qt::AlignLeft | Qt::AlignVCenter, nameOfClass(*calendar, number), look.font(),
                             look.ink());
                }
            }};
}

Strips stripsOf(const SharedCalendar& calendar, const PictureLook& look, double width) {
    Strips strips{legendStrip(calendar, look, width)};
    for (const YearOfNights& year : calendar->years)
        strips.push_back(yearStrip(calendar, year, look, width));
    strips.front() = underHeading(kCalendarHeading, strips.front(), look, width);
    return strips;
}

PictureTable tableOf(const Calendar& calendar) {
    PictureTable table{{"Date", "Events", "Games", "Pinfall", "Average"}, {}};
    for (const NightOfGames& night : calendar.nights)
        table.rows.push_back({dayText(night.day), QString::number(night.events),
                              QString::number(night.total.games), QString::number(night.total.pins),
                              averageText(night.total.average())});
    return table;
}

}  // namespace

ReportPicture calendarPicture(const BowledEvents& events) {
    const auto calendar = std::make_shared<const Calendar>(calendarOf(events));
    QStringList told;
    for (const YearOfNights& year : calendar->years)
        told += QString("%1: %2").arg(static_cast<int>(year.year)).arg(wordsOn(*calendar, year));
    return {kCalendarHeading, told.join(". ") + ".",
            [calendar](const PictureLook& look, double width, const PictureView&) {
                return stripsOf(calendar, look, width);
            },
            [calendar](const PictureView&) { return tableOf(*calendar); }};
}

}  // namespace tallybrook
