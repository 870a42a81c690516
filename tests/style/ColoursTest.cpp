#include "style/Colours.h"

#include <gtest/gtest.h>

namespace tallybrook::test {

TEST(Colours, BetweenTwo) {
    EXPECT_EQ(between(Qt::black, Qt::white, 0), QColor(Qt::black));
    EXPECT_EQ(between(Qt::black, Qt::white, 1), QColor(Qt::white));
    EXPECT_EQ(between(QColor(0, 100, 200), QColor(100, 0, 200), 0.25), QColor(25, 75, 200));
}

TEST(Colours, ContrastOfTwo) {
    EXPECT_DOUBLE_EQ(contrast(Qt::black, Qt::white), 21);
    EXPECT_DOUBLE_EQ(contrast(Qt::white, Qt::black), 21);
    EXPECT_DOUBLE_EQ(contrast(Qt::red, Qt::red), 1);
    EXPECT_NEAR(contrast(QColor(118, 118, 118), Qt::white), 4.54, 0.01);  // the palest grey for texts
}

}  // namespace tallybrook::test
