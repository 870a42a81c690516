#include "pictures/TimeAxis.h"

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

Day day(int year, unsigned month, unsigned number) {
    return Day{std::chrono::year{year} / std::chrono::month{month} / std::chrono::day{number}};
}

/// The names of the ticks where so many of them have room.
std::string ticksOf(Day first, Day last, int room, const PictureView& view = {}) {
    QStringList names;
    for (const TimeAxis::Tick& tick : TimeAxis(first, last, view, QRectF(50, 0, 100.0 * room, 10)).ticks(100))
        names += tick.name;
    return names.join(", ").toStdString();
}

}  // namespace

/// As many ticks as have room, at months, quarters, years, decades and more.
TEST(TimeAxisTest, NamesMonthsOrYearsAsThereIsRoom) {
    const Day begin = day(1999, 11, 20);
    EXPECT_EQ(ticksOf(begin, day(2000, 3, 5), 8), "Dec 1999, Jan 2000, Feb 2000, Mar 2000");
    EXPECT_EQ(ticksOf(day(2000, 1, 11), day(2000, 2, 5), 8), "Jan 2000, Feb 2000");  // from its first day on
    EXPECT_EQ(ticksOf(begin, day(2000, 12, 5), 8), "Jan 2000, Apr 2000, Jul 2000, Oct 2000");
    EXPECT_EQ(ticksOf(begin, day(2004, 12, 5), 8), "2000, 2001, 2002, 2003, 2004, 2005");
    EXPECT_EQ(ticksOf(begin, day(2011, 12, 5), 8), "2000, 2002, 2004, 2006, 2008, 2010, 2012");
    EXPECT_EQ(ticksOf(begin, day(2031, 12, 5), 8), "2000, 2005, 2010, 2015, 2020, 2025, 2030");
    EXPECT_EQ(ticksOf(begin, day(2071, 12, 5), 8), "2000, 2010, 2020, 2030, 2040, 2050, 2060, 2070");
    EXPECT_EQ(ticksOf(begin, day(2131, 12, 5), 8), "2000, 2020, 2040, 2060, 2080, 2100, 2120");
    EXPECT_EQ(ticksOf(begin, day(2331, 12, 5), 8), "2000, 2050, 2100, 2150, 2200, 2250, 2300");
    EXPECT_EQ(ticksOf(begin, day(2731, 12, 5), 8), "2000, 2100, 2200, 2300, 2400, 2500, 2600, 2700");
    EXPECT_EQ(ticksOf(begin, day(4999, 12, 5), 8), "2000, 2500, 3000, 3500, 4000, 4500, 5000");
    EXPECT_EQ(ticksOf(begin, day(31999, 12, 5), 8), "10000, 20000, 30000");
    EXPECT_EQ(ticksOf(begin, day(31999, 12, 5), 2), "");
}

TEST(TimeAxisTest, ShowsThePartInView) {
    const Day begin = day(2000, 1, 1);
    const Day end = day(2000, 12, 31);
    EXPECT_EQ(ticksOf(begin, end, 8, PictureView{0.5, 0.75, 0}), "Aug 2000, Sep 2000, Oct 2000");
    const TimeAxis whole(begin, end, {},
                         QRectF(50, 0, 385, 10));  // a pixel for each of the days and those around
    EXPECT_EQ(whole.first(), begin - std::chrono::days(10));
    EXPECT_EQ(whole.last(), end + std::chrono::days(10));
    EXPECT_DOUBLE_EQ(whole.placeOf(begin), 60);
    EXPECT_DOUBLE_EQ(whole.placeOf(day(2000, 1, 31)), 90);
    const TimeAxis decade(begin, begin + std::chrono::days(5000), {}, QRectF(0, 0, 520, 10));
    EXPECT_DOUBLE_EQ(decade.placeOf(begin), 10);  // two of a hundred days stand for the room at each end
    const TimeAxis part(begin, end, PictureView{0.2, 0.4, 0}, QRectF(50, 0, 385, 10));
    EXPECT_DOUBLE_EQ(part.placeOf(begin + std::chrono::days(67)), 50);
    EXPECT_EQ(part.first(), begin + std::chrono::days(67));
    EXPECT_EQ(part.last(), begin + std::chrono::days(144));
}

}  // namespace tallybrook::test
