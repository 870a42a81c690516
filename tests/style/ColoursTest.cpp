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

TEST(Colours, ContrastingKeepsWhatIsGood) {
    EXPECT_EQ(contrasting(Qt::black, Qt::white, 4.5), QColor(Qt::black));
    const QColor darker = contrasting(QColor(150, 150, 150), Qt::white, 4.5);
    EXPECT_GE(contrast(darker, Qt::white), 4.5);
    EXPECT_LT(contrast(darker, Qt::white), 5);
    EXPECT_GE(contrast(contrasting(QColor(60, 60, 60), Qt::black, 4.5), Qt::black), 4.5);
}

}  // namespace tallybrook::test
