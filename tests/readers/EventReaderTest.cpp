#include "Events.h"
#include "readers/ReportFigures.h"

#include <algorithm>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace tallybrook::test {

namespace {

BowledEvents eventsOf(const QString& report) {
    return readFigures(report).events.bowled;
}

}  // namespace

TEST(EventReaderTest, ReadsTheListOfTheSeason) {
    const EventFigures events = readFigures(goldenReport("statistics.txt")).events;
    ASSERT_EQ(events.bowled.size(), 10U);
    EXPECT_EQ(events.unscored, 2);
    const BowledEvent& first = events.bowled.front();
    EXPECT_EQ(first.name, "City Open");
    EXPECT_EQ(first.type, "TOURNAMENT");
    EXPECT_EQ(dayText(first.date), "9/12/2024");
    EXPECT_EQ(first.games, 3);
    EXPECT_EQ(first.gamesCounted(), 2);
    EXPECT_EQ(first.pinfall, 283);
    EXPECT_DOUBLE_EQ(first.average, 141.5);
}

TEST(EventReaderTest, ListOfOneTypeTellsNone) {
    const BowledEvents events = eventsOf(goldenReport("league.txt"));
    ASSERT_FALSE(events.empty());
    for (const BowledEvent& event : events)
        EXPECT_EQ(event.type, "");
}

TEST(EventReaderTest, OtherReportsHaveNoList) {
    for (const QString& report : {goldenReport("full.txt"), goldenReport("summary.txt"), kGameReport})
        EXPECT_TRUE(readFigures(report).events.isEmpty());
}

TEST(EventReaderTest, CommentsAreNoEvents) {
    const QString fake =
        "went well\nEvening:\nEvent: Fake\t\tDate Bowled: 1/1/2020\nGames Bowled: 3\t\tPinfall: 9\tEvent "
        "Average: 3";
    const std::vector<WrittenEvent> written = weeklyEvents(5);
    EXPECT_EQ(eventsOf(reportOf(written, fake)), eventsOf(reportOf(written)));
}

/// Events are told of in any order, right below the comment on another one too, and of some there is more
/// than a logbook holds, or nothing to draw.
TEST(EventReaderTest, EventIsAsItsOwnLinesTell) {
    struct Told {
        const char* day;
        const char* games;
        const char* pinfall;
        const char* average;
        const char* end;
    };
    const QString season = goldenReport("statistics.txt");
    QString report = season.section("Event: ", 0, 0);
    for (const Told& told : {Told{"2/1/2024", "32767", "32767", "1", ""},
                             {"1/2/2024", "1", "7", "7", "\n"},
                             {"3/1/2024", "32768", "9", "9", "\n"},
                             {"3/2/2024", "1", "32768", "9", "\n"},
                             {"3/3/2024", "3", "0", "9", "\n"},
                             {"3/4/2024", "3", "9", "0", "\n"},
                             {"3/5/2024", "3", "9", "32768", "\n"},
                             {"3/7/2024", "3", "9", "inf", "\n"},
                             {"3/6/2024", "3", "-9", "3", "\n"}})
        report += QString(
                      "Event: A\t\tDate Bowled: B\t\tDate Bowled: %1\nEvent Type: LEAGUE\nGames Bowled: "
                      "%2\t\tPinfall: %3\tEvent Average: %4\nComment: dry\n%5")
                      .arg(told.day, told.games, told.pinfall, told.average, told.end);
    const EventFigures read =
        readFigures(report + season.mid(season.indexOf("Game Statistics\n-----"))).events;
    ASSERT_EQ(read.bowled.size(), 2U);
    EXPECT_EQ(dayText(read.bowled[0].date), "1/2/2024");
    EXPECT_EQ(read.bowled[0].name, "A\t\tDate Bowled: B");
    EXPECT_EQ(read.bowled[1].games, 32767);
    EXPECT_EQ(read.bowled[1].pinfall, 32767);
    EXPECT_EQ(read.unscored, 4);
}

TEST(EventReaderTest, DateThatIsNoneIsNoEvent) {
    for (const char* const date : {"2/30/2024", "13/1/2024", "12:00:00 AM", "1/1", "", "a/b/c"}) {
        QString report = goldenReport("statistics.txt");
        report.replace("Date Bowled: 9/12/2024\nEvent Type",
                       QString("Date Bowled: %1\nEvent Type").arg(date));
        EXPECT_EQ(eventsOf(report).size(), 9U) << date;
    }
}

RC_GTEST_PROP(EventReaderTest, WhatWasWrittenIsRead, ()) {
    const std::vector<WrittenEvent> written = randomWrittenEvents();
    const EventFigures read = readFigures(reportOf(written)).events;
    auto event = read.bowled.begin();
    for (const WrittenEvent& one : written) {
        if (!one.isScored())
            continue;
        RC_ASSERT(event != read.bowled.end());
        RC_ASSERT(event->name == one.name.trimmed().toStdString());
        RC_ASSERT(event->date == one.day);
        RC_ASSERT(event->pinfall == one.pinfall);
        RC_ASSERT(event->gamesCounted() == one.recorded);
        ++event;
    }
    RC_ASSERT(event == read.bowled.end());
    RC_ASSERT(read.unscored == std::ranges::count_if(written, std::not_fn(&WrittenEvent::isScored)));
}

}  // namespace tallybrook::test
