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
