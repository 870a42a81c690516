#include "pictures/Pictures.h"
#include "readers/Events.h"
#include "support/Drawing.h"

#include <QApplication>
#include <QPainter>
#include <map>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace tallybrook::test {

namespace {

std::vector<WrittenEvent> scoredEvents() {
    std::vector<WrittenEvent> events = randomWrittenEvents(1);
    std::erase_if(events, std::not_fn(&WrittenEvent::isScored));
    return events.empty() ? weeklyEvents(30) : events;
}

ReportPicture calendarOf(const std::vector<WrittenEvent>& events) {
    return calendarPicture(readFigures(reportOf(events)).events.bowled);
}

}  // namespace

TEST(CalendarPicture, TellsTheYearsTheLastOneFirst) {
    const ReportPicture picture = calendarOf(weeklyEvents(30));
    EXPECT_TRUE(picture.summary.startsWith("1991: 13 nights, 39 games, average "));
    EXPECT_TRUE(picture.summary.contains(". 1990: 17 nights, 51 games, average "));
}

TEST(CalendarPicture, OnlyNightHasTheFullColour) {
    const PictureLook look(QApplication::font(), QPalette(Qt::white));
    const Strips strips = calendarOf(weeklyEvents(1)).strips(look, 600);
    QImage image(600, static_cast<int>(strips[1].height), QImage::Format_RGB32);
    image.fill(look.ground());
    QPainter painter(&image);
    strips[1].draw(painter);
    EXPECT_EQ(image.pixelColor(strips[1].spots.at(0).place.center().toPoint()), look.fill());
}

/// A year of 54 weeks in one row, or 28 of each half below each other, and no day larger than is seen with
/// ease.
TEST(CalendarPicture, DaysTakeTheRoomThatThereIs) {
    const PictureLook look(Drawing::font(9), QPalette(Qt::white));
    const ReportPicture picture = calendarOf(weeklyEvents(1));
    const auto dayIn = [&](double digits) {
        return picture.strips(look, digits * look.digit())[1].spots.at(0).place.width() / look.digit();
    };
    for (const double digits : {28.0, 40.0, 47.5})
        EXPECT_NEAR(dayIn(digits), digits / 28, 1e-9) << digits;
    for (const double digits : {51.4, 60.0, 91.7})
        EXPECT_NEAR(dayIn(digits), digits / 54, 1e-9) << digits;
    EXPECT_NEAR(dayIn(91.9), 1.7, 1e-9);
    EXPECT_NEAR(dayIn(51.2), 1.7, 1e-9);
}

TEST(CalendarPicture, LegendOfOneNightTellsNoAverages) {
    const PictureLook look(Drawing::font(9), QPalette(Qt::white));
    Drawing drawing;
    QPainter painter(&drawing);
    calendarOf(weeklyEvents(1)).strips(look, 600)[0].draw(painter);
    painter.end();
    EXPECT_NE(drawing.told().find("\"A night with games\"\n"), std::string::npos) << drawing.told();
}

RC_GTEST_PROP(CalendarPicture, NightsAreThoseOfTheEvents, ()) {
    const std::vector<WrittenEvent> events = scoredEvents();
    std::map<Day, std::pair<int, int>> nights;  // games and pins
    for (const WrittenEvent& event : events) {
        nights[event.day].first += event.recorded;
        nights[event.day].second += event.pinfall;
    }
    const PictureTable table = calendarOf(events).table({});
    RC_ASSERT(table.rows.size() == nights.size());
    std::size_t row = 0;
    for (const auto& [day, sums] : nights) {
        RC_ASSERT(table.rows[row][0] == dayText(day));
        RC_ASSERT(table.rows[row][2].toInt() == sums.first);
        RC_ASSERT(table.rows[row][3].toInt() == sums.second);
        ++row;
    }
}

RC_GTEST_PROP(CalendarPicture, EveryNightHasAPlaceOfItsOwn, ()) {
    const ReportPicture picture = calendarOf(scoredEvents());
    const PictureLook look(QApplication::font(), QPalette());
    for (const double width : {look.leastWidth(), 3 * look.leastWidth()}) {
        std::size_t count = 0;
        for (const Strip& strip : picture.strips(look, width)) {
            for (const Spot& spot : strip.spots) {
                RC_ASSERT(spot.place.left() >= 0 && spot.place.right() <= width + 1e-9);
                RC_ASSERT(spot.place.bottom() <= strip.height);
                for (const Spot& other : strip.spots)
                    RC_ASSERT(&spot == &other ||
                              !spot.place.adjusted(0.1, 0.1, -0.1, -0.1).intersects(other.place));
                ++count;
            }
        }
        RC_ASSERT(count == picture.table({}).rows.size());
    }
}

}  // namespace tallybrook::test
