#include "bowling/LanePair.h"
#include "runtime/RunTimeError.h"

#include <string>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

TEST(LanePair, IsAnOddLaneAndTheNext) {
    for (const char* good : {"5-6", "13-14", "1-2", "5x-6", " 5 - 6 ", "5-6-7", "4.6-6", "5-6.4"})
        EXPECT_TRUE(isLanePair(good)) << good;
    for (const char* bad :
         {"6-5", "5-7", "4-5", "5", "", "-", "5-", "-6", "--", "lanes", "5--6", "56", "5--32767"})
        EXPECT_FALSE(isLanePair(bad)) << bad;
}

TEST(LanePair, IsThatOfEitherLane) {
    for (int left = 1; left < 100; left += 2) {
        for (const int lane : {left, left + 1}) {
            const LanePair pair = pairOf(lane);
            EXPECT_EQ(pair.left, Int16(left));
            EXPECT_EQ(pair.right, Int16(left + 1));
            EXPECT_TRUE(isLanePair(text(pair))) << text(pair);
            EXPECT_EQ(pair.beside(lane), Int16(2 * left + 1 - lane));
        }
        EXPECT_EQ(pairOf(left).beside(left + 2), std::nullopt);
        EXPECT_EQ(pairOf(left).beside(left - 1), std::nullopt);
    }
    EXPECT_EQ(text(pairOf(12)), "11-12");
    EXPECT_THROW(static_cast<void>(pairOf(32767)), RunTimeError);
}

TEST(LanePair, FailsBeyondSixteenBits) {
    for (const char* beyond : {"40001-40002", "5-40000", "1e9-6", "32767-32768"})
        EXPECT_THROW(isLanePair(beyond), RunTimeError) << beyond;
}

TEST(LanePair, IsEveryOddLaneWithTheNextAndNoOther) {
    for (int left = 0; left < 100; ++left) {
        for (int right = 0; right < 100; ++right) {
            const std::string pair = std::to_string(left) + "-" + std::to_string(right);
            ASSERT_EQ(isLanePair(pair), left % 2 == 1 && right == left + 1) << pair;
        }
    }
}

}  // namespace

}  // namespace tallybrook::test
