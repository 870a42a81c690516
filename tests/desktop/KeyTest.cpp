#include "Desktop.h"
#include "desktop/KeyNames.h"
#include "runtime/EndProgram.h"

#include <QMenu>

namespace tallybrook::test {

using KeyTest = Desktop;

TEST_F(KeyTest, TabWalksTheTabOrder) {
    const Lines order{"txtShort", "txtLines", "optYes", "optNo",   "chkPlain",
                      "chkPin",   "chkOther", "cmdGo",  "cmdStop", "txtName"};
    Lines walked;
    for (std::size_t i = 0; i < order.size(); ++i) {
        press(Qt::Key_Tab);
        walked.push_back(window().focusWidget()->objectName().toStdString());
    }
    EXPECT_EQ(walked, order);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(screen().cmdStop.hasFocus());
}

TEST_F(KeyTest, TabThatIsKept) {
    screen().txtName.onLostFocus = [this] { screen().txtName.focus(); };
    press(Qt::Key_Tab);
    EXPECT_EQ(display.lastArrival(), Arrival::Kept);
    EXPECT_EQ(window().focusWidget(), &widget(screen().txtName));
}

TEST_F(KeyTest, AltLetterPressesAButton) {
    press(Qt::Key_G, Qt::AltModifier);
    EXPECT_EQ(log(), (Lines{"lost txtName", "got cmdGo", "click cmdGo"}));
}

TEST_F(KeyTest, AltLetterOfALabelReachesWhatItNames) {
    press(Qt::Key_P, Qt::AltModifier);
    EXPECT_TRUE(screen().chkPlain.value());
    press(Qt::Key_N, Qt::AltModifier);
    EXPECT_EQ(window().focusWidget(), &widget(screen().txtName));
}

TEST_F(KeyTest, AltLetterOfAMenuOpensIt) {
    press(Qt::Key_F, Qt::AltModifier);
    QWidget* const menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(dynamic_cast<QMenu&>(*menu).menuAction(), display.actionOf(screen().mnuFile));
    menu->close();
    QTest::qWait(1);
    EXPECT_EQ(window().focusWidget(), &widget(screen().txtName));
}

TEST_F(KeyTest, AltLetterOfSeveralOpensTheMenuInItsTurn) {
    screen().cmdGo.setCaption("&Full");
    for (int round = 0; round < 2; ++round) {
        press(Qt::Key_F, Qt::AltModifier);
        EXPECT_EQ(window().focusWidget(), &widget(screen().cmdGo));
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        press(Qt::Key_F, Qt::AltModifier);
        QWidget* const menu = QApplication::activePopupWidget();
        ASSERT_NE(menu, nullptr);
        EXPECT_EQ(dynamic_cast<QMenu&>(*menu).menuAction(), display.actionOf(screen().mnuFile));
        menu->close();
        QTest::qWait(1);
    }
    EXPECT_EQ(log(), (Lines{"lost txtName", "got cmdGo"}));
}

TEST_F(KeyTest, AltLetterOfAGroupIsUnderlined) {
    screen().fraAnswers.setCaption("Ans&wers");
    display.perform([] {});
    const QImage with = widget(screen().fraAnswers).grab().toImage();
    screen().fraAnswers.setCaption("Answers");
    display.perform([] {});
    EXPECT_NE(widget(screen().fraAnswers).grab().toImage(), with);
}

TEST_F(KeyTest, AltLetterOfNothingWritesNothing) {
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Q, Qt::AltModifier, "q");
    QApplication::sendEvent(keyTarget(), &event);
    EXPECT_EQ(screen().txtName.text(), "");
}

TEST_F(KeyTest, ShortcutRunsItsEntry) {
    press(Qt::Key_F1);
    EXPECT_EQ(log(), Lines{"click mnuHelp"});
}

TEST_F(KeyTest, ReturnAndEscapePressTheirButtons) {
    press(Qt::Key_Return);
    EXPECT_EQ(log(), (Lines{"lost txtName", "got cmdGo", "click cmdGo"}));
    press(Qt::Key_Escape);
    EXPECT_EQ(log(), (Lines{"lost cmdGo", "got cmdStop", "click cmdStop"}));
}

TEST_F(KeyTest, ReturnEndsALineInABoxOfSeveral) {
    click(screen().txtLines);
    type("one");
    press(Qt::Key_Return);
    type("two");
    EXPECT_EQ(screen().txtLines.text(), "one\ntwo");
}

/// The toolkit's own shortcuts must not have what the screen answers.
TEST_F(KeyTest, KeysThatTheScreenAnswersAreItsOwn) {
    struct Own {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        bool isOwn;
    };
    for (const auto& [key, modifiers, isOwn] :
         {Own{Qt::Key_Escape, Qt::NoModifier, true}, Own{Qt::Key_Tab, Qt::NoModifier, true},
          Own{Qt::Key_Backtab, Qt::ShiftModifier, true}, Own{Qt::Key_G, Qt::AltModifier, true},
          Own{Qt::Key_Q, Qt::AltModifier, false}, Own{Qt::Key_Tab, Qt::AltModifier, false},
          Own{Qt::Key_G, Qt::NoModifier, false}, Own{Qt::Key_F1, Qt::NoModifier, false}}) {
        QKeyEvent asked(QEvent::ShortcutOverride, key, modifiers);
        asked.ignore();
        QApplication::sendEvent(&widget(screen().cmdGo), &asked);
        EXPECT_EQ(asked.isAccepted(), isOwn) << keyOf(asked).name;
    }
}

TEST_F(KeyTest, SpaceTogglesOnce) {
    display.perform([this] { screen().chkPin.focus(); });
    press(Qt::Key_Space);
    EXPECT_TRUE(screen().chkPin.value());
    press(Qt::Key_Space);
    EXPECT_FALSE(screen().chkPin.value());
}

TEST_F(KeyTest, SpaceWhoseClickIsGivenUpIsNotPressedAgain) {
    int presses = 0;
    screen().cmdGo.onClick = [&] {
        ++presses;
        throw EndHandler{};
    };
    display.perform([this] { screen().cmdGo.focus(); });
    press(Qt::Key_Space);
    EXPECT_EQ(presses, 1);
}

TEST_F(KeyTest, TabWhoseLeavingIsGivenUpIsNotTyped) {
    click(screen().txtLines);
    screen().txtLines.onLostFocus = [] { throw EndHandler{}; };
    press(Qt::Key_Tab);
    EXPECT_EQ(screen().txtLines.text(), "");
    EXPECT_EQ(window().focusWidget(), &widget(screen().txtLines));
}

TEST_F(KeyTest, ArrowsWalkAmongOptionsAndPinsWithoutChoosing) {
    display.perform([this] { screen().optYes.focus(); });
    press(Qt::Key_Right);
    EXPECT_EQ(window().focusWidget(), &widget(screen().optNo));
    EXPECT_FALSE(screen().optNo.value());
    display.perform([this] { screen().cmdGo.focus(); });
    press(Qt::Key_Right);
    EXPECT_EQ(window().focusWidget(), &widget(screen().cmdGo));
}

TEST_F(KeyTest, ArrowsMoveTheCursorInABox) {
    type("ac");
    press(Qt::Key_Left);
    type("b");
    EXPECT_EQ(screen().txtName.text(), "abc");
    EXPECT_EQ(widget<QLineEdit>(screen().txtName).cursorPosition(), 2);
}

struct NamedKey {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    std::string name;
    bool alt = false;
    bool control = false;
    bool shift = false;
};

TEST(KeyNames, AreTheProgramsOwn) {
    const std::vector<NamedKey> keys{
        {Qt::Key_Tab, Qt::NoModifier, "Tab"},
        {Qt::Key_Backtab, Qt::NoModifier, "Tab", false, false, true},
        {Qt::Key_Enter, Qt::KeypadModifier, "Return"},
        {Qt::Key_Return, Qt::NoModifier, "Return"},
        {Qt::Key_Escape, Qt::NoModifier, "Escape"},
        {Qt::Key_Space, Qt::NoModifier, "Space"},
        {Qt::Key_N, Qt::AltModifier, "N", true},
        {Qt::Key_F1, Qt::ControlModifier, "F1", false, true},
        {Qt::Key_Left, Qt::ShiftModifier, "Left", false, false, true},
        {Qt::Key_PageUp, Qt::NoModifier, "PageUp"},
        {Qt::Key_PageDown, Qt::KeypadModifier, "PageDown"},
    };
    for (const NamedKey& expected : keys) {
        const person::Key key = keyOf(QKeyEvent(QEvent::KeyPress, expected.key, expected.modifiers));
        EXPECT_EQ(key.name, expected.name);
        EXPECT_EQ(key.alt, expected.alt) << expected.name;
        EXPECT_EQ(key.control, expected.control) << expected.name;
        EXPECT_EQ(key.shift, expected.shift) << expected.name;
    }
}

}  // namespace tallybrook::test
