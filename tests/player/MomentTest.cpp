#include "player/Moment.h"

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

TEST(Moment, IsReadToTheSecond) {
    EXPECT_EQ(readMoment("2026-11-14 21:55:32"), makeDate(2026, 11, 14) + std::chrono::hours{21} +
                                                     std::chrono::minutes{55} + std::chrono::seconds{32});
    EXPECT_EQ(readMoment("2024-02-29 00:00:00"), makeDate(2024, 2, 29));
}

TEST(Moment, AnythingElseIsNone) {
    for (const char* const text :
         {"", "2026-11-14", "2026-11-14 21:55", "2026-02-29 00:00:00", "2026-13-01 00:00:00",
          "2026-01-01 24:00:00", "2026-01-01 00:60:00", "2026-01-01 00:00:60", "2026/01/01 00:00:00",
          "2026-01-01T00:00:00", "2026-01-01 00:00:00 ", "x026-01-01 00:00:00"})
        EXPECT_EQ(readMoment(text), std::nullopt) << text;
}

TEST(Moment, APlainDateLeavesTheTimeOut) {
    EXPECT_EQ(plainDate(makeDate(2026, 3, 4) + std::chrono::hours{23}), "2026-03-04");
    EXPECT_EQ(plainDate(kZeroDate), "1899-12-30");
}

}  // namespace

}  // namespace tallybrook::test
