#include "OwnScreens.h"

#include <QLineEdit>
#include <map>
#include <vector>

namespace tallybrook::test {

/// A game entered on the real windows by the keyboard alone. Every press is counted.
class KeyboardGame : public OwnScreens {
protected:
    KeyboardGame() {
        beginEvent();
        beginFrames();
        QTest::qWait(1);
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        ++presses_;
        QWidget* const focused = window().focusWidget();
        QTest::keyClick(focused == nullptr ? &window() : focused, key, modifiers);
    }
    void press(Qt::Key key, int times) {
        for (int i = 0; i < times; ++i)
            press(key);
    }
    void alt(Qt::Key letter) { press(letter, Qt::AltModifier); }

    [[nodiscard]] std::string focus() { return screen().focused()->name(); }
    [[nodiscard]] std::string cell(int frame) {
        return dynamic_cast<TextBox&>(control("txtCount(" + std::to_string(frame) + ")")).text();
    }

    /// From Next Frame to the answers of the first ball: past the comment.
    void goToFirstBall(const std::string& answer) {
        while (focus() != answer)
            press(Qt::Key_Backtab, Qt::ShiftModifier);
    }
    void strike() {
        goToFirstBall("optFirstYes");
        press(Qt::Key_Space);
    }
    /// Says No and goes down to the pins of a panel, ticks those and is done.
    void leave(const std::vector<std::pair<Qt::Key, int>>& waysToPins) {
        press(Qt::Key_Space);
        for (const auto& [arrow, steps] : waysToPins) {
            press(arrow, steps);
            press(Qt::Key_Space);
        }
        alt(Qt::Key_D);
    }
    void next() { alt(Qt::Key_N); }

    /// How many keys have been pressed since the last call.
    int takePresses() { return std::exchange(presses_, 0); }

private:
    int presses_ = 0;
};

TEST_F(KeyboardGame, WholeGameWithFewPresses) {
    // The first frame begins at the lane.
    EXPECT_EQ(focus(), "txtLaneNum");
    press(Qt::Key_Tab, 4);
    press(Qt::Key_Space);
    next();
    EXPECT_EQ(cell(1), "X");
    EXPECT_LE(takePresses(), 6);

    // 3-6-10, converted. From No the first key down leads into the back row.
    goToFirstBall("optFirstNo");
    leave({{Qt::Key_Down, 1}, {Qt::Key_Right, 1}});
    EXPECT_EQ(focus(), "optSecondYes");
    press(Qt::Key_Space);
    EXPECT_EQ(cell(2), "8/");
    next();
    EXPECT_LE(takePresses(), 10);

    // The ten pin stays.
    goToFirstBall("optFirstNo");
    press(Qt::Key_Space);
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    press(Qt::Key_Space);
    alt(Qt::Key_D);
    press(Qt::Key_Right);
    leave({{Qt::Key_Down, 1}});
    next();
    EXPECT_EQ(cell(3), "90");
    EXPECT_LE(takePresses(), 12);

    for (int frame = 4; frame <= 9; ++frame) {
        strike();
        next();
        EXPECT_EQ(cell(frame), "X");
        EXPECT_LE(takePresses(), 5) << frame;
    }

    // Three strikes in the tenth.
    strike();
    press(Qt::Key_Tab);
    EXPECT_LE(takePresses(), 99);
}

}  // namespace tallybrook::test
