#include "bowling/Season.h"

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

std::string seasonAt(int year, unsigned month, unsigned day) {
    using namespace std::chrono;
    return nameOf(
        seasonOf(local_days{std::chrono::year{year} / std::chrono::month{month} / std::chrono::day{day}}));
}

}  // namespace

TEST(SeasonTest, RunsFromSeptemberToMay) {
    EXPECT_EQ(seasonAt(2025, 9, 1), "2025/26");
    EXPECT_EQ(seasonAt(2025, 12, 31), "2025/26");
    EXPECT_EQ(seasonAt(2026, 1, 1), "2025/26");
    EXPECT_EQ(seasonAt(2026, 5, 31), "2025/26");
    EXPECT_EQ(seasonAt(1999, 10, 3), "1999/00");
}

TEST(SeasonTest, SummerIsNoneOfThem) {
    EXPECT_EQ(seasonAt(2026, 6, 1), "Summer 2026");
    EXPECT_EQ(seasonAt(2026, 8, 31), "Summer 2026");
}

TEST(SeasonTest, FollowOneAnother) {
    using namespace std::chrono;
    local_days day{2000y / January / 1};
    for (int count = 0; count < 20000; ++count, day += days{1}) {
        const Season today = seasonOf(day);
        const Season tomorrow = seasonOf(day + days{1});
        EXPECT_TRUE(today == tomorrow || today < tomorrow || today.isSummer) << count;
    }
}

}  // namespace tallybrook::test
