#include "store/sql/FieldValue.h"

#include <cmath>
#include <limits>
#include <string>

#include <gtest/gtest.h>

namespace tallybrook {

namespace {

TEST(WholeNumber, IsWhatADoubleTellsApartFromItsNeighbours) {
    const double limit = std::ldexp(1, 53);
    for (const double whole : {0.0, -0.0, 1.0, -300.0, limit - 1, 1 - limit})
        EXPECT_EQ(wholeNumberIn(whole), static_cast<std::int64_t>(whole)) << whole;
    for (const double none : {0.5, -0.5, 199.99, limit, -limit, std::numeric_limits<double>::infinity(),
                              std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(wholeNumberIn(none), std::nullopt) << none;
}

TEST(StoredDate, IsReadAsItIsWritten) {
    for (const DateTime date :
         {makeDate(100, 1, 1), makeDate(1999, 12, 31), makeDate(2024, 2, 29), makeDate(9999, 10, 9)})
        EXPECT_EQ(storedDateIn(storedDate(date)), date) << storedDate(date);
    EXPECT_EQ(storedDate(makeDate(326, 4, 7)), "0326-04-07");
    EXPECT_EQ(storedDate(makeDate(2026, 11, 14)), "2026-11-14");
}

TEST(StoredDate, IsWrittenInNoOtherForm) {
    for (const char* text :
         {"", "2026-11-1", "2026-11-145", "2026/11-14", "2026-11/14", "2026-13-01", "2026-00-10",
          "2026-11-31", "2026-11-00", "2026-11-1x", "2026-1x-14", "202x-11-14", "-026-11-14", "2026--1-14",
          "2026-11--4", " 026-11-14", "2026- 1-14", "2026-11- 4", "+026-11-14"})
        EXPECT_EQ(storedDateIn(text), std::nullopt) << text;
}

}  // namespace

}  // namespace tallybrook
