#include "OwnScreens.h"

#include <initializer_list>
#include <utility>

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
    void pressAll(std::initializer_list<Qt::Key> keys) {
        for (const Qt::Key key : keys)
            press(key);
    }
    void alt(Qt::Key letter) { press(letter, Qt::AltModifier); }
    void nextFrame() { alt(Qt::Key_N); }
    void done() { alt(Qt::Key_D); }
    /// Walks back through the tab order.
    void goBackTo(const std::string& name) {
        constexpr int kFar = 10;
        for (int i = 0; i < kFar && focus() != name; ++i)
            press(Qt::Key_Backtab, Qt::ShiftModifier);
        ASSERT_EQ(focus(), name);
    }
    /// Presses Return in the next box.
    void confirmNext() {
        hands.expect([this](QDialog& box) {
            ++presses_;
            QTest::keyClick(&box, Qt::Key_Return);
        });
    }

    [[nodiscard]] std::string focus() { return screen().focused()->name(); }
    [[nodiscard]] std::string text(const std::string& name) {
        return dynamic_cast<TextBox&>(control(name)).text();
    }
    [[nodiscard]] std::string cell(int frame) { return text("txtCount(" + std::to_string(frame) + ")"); }

    /// How many keys have been pressed since the last call.
    int takePresses() { return std::exchange(presses_, 0); }

private:
    int presses_ = 0;
};

TEST_F(KeyboardGame, WholeGameInFewPresses) {
    // The first frame begins at the lane. A strike.
    EXPECT_EQ(focus(), "txtLaneNum");
    pressAll({Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Space});
    EXPECT_EQ(cell(1), "X");
    nextFrame();
    EXPECT_EQ(takePresses(), 6);

    // The 9-10 stays and is converted. From No the way down leads into the back row.
    goBackTo("optFirstNo");
    pressAll({Qt::Key_Space, Qt::Key_Down, Qt::Key_Space, Qt::Key_Right, Qt::Key_Space});
    done();
    EXPECT_EQ(focus(), "optSecondYes");
    press(Qt::Key_Space);
    EXPECT_EQ(cell(2), "8/");
    nextFrame();
    EXPECT_EQ(takePresses(), 10);

    // The ten pin stays, twice.
    goBackTo("optFirstNo");
    pressAll({Qt::Key_Space, Qt::Key_Down, Qt::Key_Right, Qt::Key_Space});
    done();
    pressAll({Qt::Key_Right, Qt::Key_Space, Qt::Key_Down, Qt::Key_Space});
    done();
    EXPECT_EQ(cell(3), "90");
    nextFrame();
    EXPECT_EQ(takePresses(), 13);

    // The 3-6-10, and the head of it: down from the corner of the rack to its side.
    goBackTo("optFirstNo");
    pressAll({Qt::Key_Space, Qt::Key_Down, Qt::Key_Right, Qt::Key_Space, Qt::Key_Down, Qt::Key_Space,
              Qt::Key_Down, Qt::Key_Space});
    done();
    EXPECT_EQ(cell(4), "7");
    press(Qt::Key_Space);
    EXPECT_EQ(cell(4), "7/");
    nextFrame();
    EXPECT_EQ(takePresses(), 13);

    for (int frame = 5; frame <= 9; ++frame) {
        goBackTo("optFirstYes");
        press(Qt::Key_Space);
        EXPECT_EQ(cell(frame), "X");
        nextFrame();
        EXPECT_EQ(takePresses(), 5) << frame;
    }

    // Three strikes in the tenth: back through the tab order once, and on to the fill ball.
    goBackTo("optFirstYes");
    press(Qt::Key_Space);
    goBackTo("optSecondYes");
    pressAll({Qt::Key_Space, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Space});
    EXPECT_EQ(cell(10), "XXX");
    confirmNext();
    confirmNext();
    nextFrame();
    EXPECT_LE(takePresses(), 17);
    EXPECT_EQ(screen().name(), "frmGame");
    EXPECT_EQ(text("txtGameScore"), "248");
}

TEST_F(KeyboardGame, ReturnPressesTheFocusedButton) {
    pressAll({Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Space});
    pressAll({Qt::Key_Down, Qt::Key_Space, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down});
    EXPECT_EQ(focus(), "cmdFirstDone");
    press(Qt::Key_Up);
    EXPECT_EQ(focus(), "chkFirstPinfall(1)");
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(cell(1), "9");
}

}  // namespace tallybrook::test
