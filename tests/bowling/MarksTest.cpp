#include "bowling/Marks.h"

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

TEST(Marks, AreReadOneByOne) {
    EXPECT_EQ(markOf("9/X", 1), "9");
    EXPECT_EQ(markOf("9/X", 3), "X");
    EXPECT_EQ(markOf("9/", 3), "");
    EXPECT_EQ(markOf("", 1), "");
    EXPECT_EQ(markOf("\u00c4/", 2), "/");
}

TEST(Marks, CountByThemselves) {
    for (char digit = '0'; digit <= '9'; ++digit) {
        EXPECT_EQ(countOf(std::string(1, digit)), digit - '0');
        EXPECT_TRUE(isCount(std::string(1, digit)));
    }
    for (const char* const mark : {"", "X", "/", "x", "-", "12", "\u0669"}) {
        EXPECT_EQ(countOf(mark), 0) << mark;
        EXPECT_FALSE(isCount(mark)) << mark;
    }
}

TEST(Marks, AreStrikesAndSpares) {
    EXPECT_TRUE(isStrike("X") && isMark("X") && isSpare("/") && isMark("/"));
    for (const char* const ball : {"", "x", "9", "7-10", "X/", "XX"})
        EXPECT_FALSE(isMark(ball)) << ball;
}

}  // namespace

}  // namespace tallybrook::test
