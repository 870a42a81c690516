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

/// The parts of a colour, and how dark ones are told apart.
TEST(Colours, ContrastIsThatOfTheEye) {
    struct One {
        QColor first;
        QColor second;
        double contrast;
    };
    for (const auto& [first, second, wanted] :
         {One{Qt::red, Qt::white, 3.998}, One{Qt::green, Qt::white, 1.372}, One{Qt::blue, Qt::white, 8.592},
          One{QColor(5, 5, 5), Qt::black, 1.0304}, One{QColor(10, 10, 10), Qt::black, 1.0607},
          One{QColor(11, 11, 11), Qt::black, 1.0669}})
        EXPECT_NEAR(contrast(first, second), wanted, 0.0006) << first.name().toStdString();
}

TEST(Colours, ContrastingKeepsWhatIsGood) {
    EXPECT_EQ(contrasting(Qt::black, Qt::white, 4.5), QColor(Qt::black));
    const QColor darker = contrasting(QColor(150, 150, 150), Qt::white, 4.5);
    EXPECT_GE(contrast(darker, Qt::white), 4.5);
    EXPECT_LT(contrast(darker, Qt::white), 5);
    EXPECT_EQ(darker, QColor(117, 117, 117));
    EXPECT_EQ(contrasting(Qt::white, QColor(128, 128, 128), 21), QColor(Qt::black)) << "as far as it goes";
    EXPECT_GE(contrast(contrasting(QColor(60, 60, 60), Qt::black, 4.5), Qt::black), 4.5);
}

TEST(Colours, OfOutlinesAreSeenInBoxesOfAnyBrightness) {
    QPalette palette(QColor(240, 240, 240));
    palette.setColor(QPalette::Base, QColor(170, 170, 170));
    for (const QColor& colour : {outlineColour(palette), focusColour(palette)}) {
        for (const QPalette::ColorRole ground : {QPalette::Window, QPalette::Base})
            EXPECT_GE(contrast(colour, palette.color(ground)), kShapeContrast) << colour.name().toStdString();
    }
}

}  // namespace tallybrook::test
