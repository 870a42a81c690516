#include "bowling/FrameWords.h"

#include <gtest/gtest.h>

namespace tallybrook::test {

TEST(FrameWords, TellWhatHasBecomeOfAFrame) {
    EXPECT_EQ(inWords(""), "");
    EXPECT_EQ(inWords("7"), "7 so far");
    EXPECT_EQ(inWords("0"), "0 so far");
    EXPECT_EQ(inWords("X"), "Strike");
    EXPECT_EQ(inWords("7/"), "Spare");
    EXPECT_EQ(inWords("72"), "9");
    EXPECT_EQ(inWords("00"), "0");
}

TEST(FrameWords, TellATenthFrameBallByBall) {
    EXPECT_EQ(inWords("X7"), "Strike, 7 so far");
    EXPECT_EQ(inWords("X72"), "Strike, 9");
    EXPECT_EQ(inWords("X7/"), "Strike, Spare");
    EXPECT_EQ(inWords("7/5"), "Spare, 5");
    EXPECT_EQ(inWords("XX5"), "Strike, Strike, 5");
    EXPECT_EQ(inWords("XXX"), "Strike, Strike, Strike");
}

TEST(FrameWords, PassOverWhatIsNoMark) {
    EXPECT_EQ(inWords("-"), "");
    EXPECT_EQ(inWords("a/"), "Spare");
}

}  // namespace tallybrook::test
