#include "runtime/RunTimeError.h"
#include "runtime/TextForms.h"

#include <string>
#include <vector>

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>

namespace tallybrook {

namespace {

DateTime at(DateTime day, int hour, int minute, int second) {
    return day + std::chrono::hours{hour} + std::chrono::minutes{minute} + std::chrono::seconds{second};
}

TEST(DateText, IsWrittenAsInTheUnitedStates) {
    EXPECT_EQ(shortDate(makeDate(2026, 11, 4)), "11/4/2026");
    EXPECT_EQ(timeText(at(makeDate(2026, 11, 4), 21, 55, 0)), "9:55:00 PM");
    EXPECT_EQ(timeText(makeDate(2026, 11, 4)), "12:00:00 AM");
    EXPECT_EQ(timeText(at(makeDate(2026, 11, 4), 12, 0, 5)), "12:00:05 PM");
    EXPECT_EQ(dateText(makeDate(2026, 11, 4)), "11/4/2026");
    EXPECT_EQ(dateText(at(makeDate(2026, 11, 4), 9, 5, 7)), "11/4/2026 9:05:07 AM");
    EXPECT_EQ(dateText(kZeroDate), "12:00:00 AM");
    EXPECT_EQ(timeText(withoutSeconds(at(makeDate(2026, 1, 1), 21, 55, 32))), "9:55:00 PM");
}

TEST(DateText, IsReadInManyForms) {
    const DateTime day = makeDate(2026, 11, 14);
    for (const char* text :
         {"11/14/2026",       "11-14-2026",       "11.14.2026",  "11/14/26",   "11/14",      "11-14",
          "14/11/2026",       "14.11.26",         "14-11",       "2026-11-14", "2026/11/14", "Nov 14, 2026",
          "14 november 2026", "NOVEMBER 14 2026", "14-Nov-2026", "nov 14",     "14 nov",     "2026 Nov 14",
          " 11 / 14 / 2026 ", "Nov 14, 26",       "Nov\t14 2026"})
        EXPECT_EQ(readDate(text, 2026), day) << text;
    EXPECT_EQ(readDate("1/1/29", 2026), makeDate(2029, 1, 1));
    EXPECT_EQ(readDate("1/1/30", 2026), makeDate(1930, 1, 1));
    EXPECT_EQ(readDate("1/1/99", 2026), makeDate(1999, 1, 1));
    EXPECT_EQ(readDate("1/1/0100", 2026), makeDate(100, 1, 1));
    EXPECT_EQ(readDate("2/29/2024", 2026), makeDate(2024, 2, 29));
    EXPECT_EQ(readDate("11/14/2026 9:55:32 PM", 2026), at(day, 21, 55, 32));
    EXPECT_EQ(readDate("11/14/2026 21:55", 2026), at(day, 21, 55, 0));
    EXPECT_EQ(readDate("Nov 14, 2026 12:05 am", 2026), at(day, 0, 5, 0));
    EXPECT_EQ(readDate("2026-11-14 12:05 pm", 2026), at(day, 12, 5, 0));
}

TEST(DateText, KnowsEachMonthByItsNameAndItsFirstLetters) {
    const std::vector<std::string> months{"January",   "February", "March",    "April",
                                          "May",       "June",     "July",     "August",
                                          "September", "October",  "November", "December"};
    for (unsigned month = 1; month <= 12; ++month) {
        const std::string& name = months[month - 1];
        const DateTime day = makeDate(2026, month, 3);
        EXPECT_EQ(readDate(name + " 3, 2026", 2000), day);
        EXPECT_EQ(readDate("3 " + name.substr(0, 3), 2026), day);
        EXPECT_EQ(readDate(fmt::format("{}/3/2026", month), 2000), day);
    }
}

TEST(DateText, KnowsEachHour) {
    const DateTime day = makeDate(2026, 11, 14);
    for (int hour = 0; hour < 24; ++hour) {
        const DateTime when = at(day, hour, 59, 59);
        EXPECT_EQ(readDate(fmt::format("11/14/2026 {}:59:59", hour), 2026), when);
        EXPECT_EQ(readDate(dateText(when), 2026), when);
        EXPECT_EQ(timeOfDay(when),
                  fmt::format("{}:59 {}", hour % 12 == 0 ? 12 : hour % 12, hour < 12 ? "AM" : "PM"));
    }
    for (const char* none : {"24:00", "0:60", "0:00:60", "0:30 AM", "13:00 AM", "1:00 XM"})
        EXPECT_THROW(readDate(std::string("11/14/2026 ") + none, 2026), RunTimeError) << none;
}

TEST(DateText, RefusesEverythingElse) {
    for (const char* text : {"",
                             "someday",
                             "2/30/2026",
                             "2/29/2023",
                             "13/13/2026",
                             "2026-14-11",
                             "0/1/2026",
                             "1/0/2026",
                             "11/14-2026",
                             "11/14/2026/1",
                             "1",
                             "2026",
                             "11/14/123",
                             "11/14/20266",
                             "Nov",
                             "Nov 31",
                             "Novem 14",
                             "11/14/2026 25:00",
                             "11/14/2026 9:61",
                             "11/14/2026 13:00 PM",
                             "11/14/2026 PM",
                             "99999999999999999999/1/1",
                             "11/14/2026 9:55:32 PM x",
                             "-1/1/2026",
                             ":",
                             "1:2:3:4",
                             "9:55 PM",
                             "12:00:00 AM",
                             "11/14/2026 9:55:",
                             "11/14/2026 9:55: PM",
                             "11/4/5",
                             "2026.11.14",
                             "11,14,2026",
                             "Nov 14 2026 7",
                             "1/1/0099",
                             "-Nov 14",
                             "Nov--14",
                             ",,14 Nov",
                             "Nov 14,",
                             "\xff\xfe"}) {
        try {
            readDate(text, 2026);
            ADD_FAILURE() << text;
        } catch (const RunTimeError& failure) {
            EXPECT_EQ(failure.number(), error::kTypeMismatch) << text;
        }
    }
}

TEST(DateText, ReadsBackWhatItWrites) {
    EXPECT_TRUE(rc::check([] {
        const auto day = *rc::gen::inRange(0, 80000);
        const auto second = *rc::gen::inRange(0, 86400);
        const DateTime when = makeDate(1900, 1, 1) + std::chrono::days{day} + std::chrono::seconds{second};
        RC_ASSERT(readDate(dateText(when), 2026) == when);
        RC_ASSERT(readDate(shortDate(when), 2026) == dateOnly(when));
    }));
}

TEST(DateText, TakesAnyTextWithoutHarm) {
    EXPECT_TRUE(rc::check([](const std::string& text) {
        try {
            readDate(text, 2026);
        } catch (const RunTimeError& failure) {
            RC_ASSERT(failure.number() == error::kTypeMismatch);
        }
    }));
}

}  // namespace

}  // namespace tallybrook
