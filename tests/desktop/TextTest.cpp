#include "Desktop.h"
#include "shell/frmAbout.h"

#include <QClipboard>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <functional>

namespace tallybrook::test {

class TextTest : public Desktop {
protected:
    QLineEdit& nameEdit() { return widget<QLineEdit>(screen().txtName); }
    QPlainTextEdit& linesEdit() { return widget<QPlainTextEdit>(screen().txtLines); }
    void setText(TextBox& box, const std::string& text) {
        display.perform([&] { box.setText(text); });
    }
    void paste(const QString& text) {
        QApplication::clipboard()->setText(text);
        press(Qt::Key_V, Qt::ControlModifier);
    }
};

TEST_F(TextTest, TypedTextIsTheScreens) {
    Lines changes;
    screen().txtName.onChange = [&] { changes.push_back(screen().txtName.text()); };
    type("Al");
    EXPECT_EQ(changes, (Lines{"A", "Al"}));
}

TEST_F(TextTest, TypingReplacesWhatIsSelected) {
    setText(screen().txtShort, "abc");
    click(screen().txtShort);
    type("x");
    EXPECT_EQ(screen().txtShort.text(), "x");
    EXPECT_FALSE(screen().txtShort.isAllSelected());
}

TEST_F(TextTest, WhatTheScreenMakesOfItIsShown) {
    screen().txtName.onChange = [this] {
        if (screen().txtName.text() == "a")
            screen().txtName.setText("[a]");
    };
    type("a");
    EXPECT_EQ(nameEdit().text(), "[a]");
}

TEST_F(TextTest, LimitHoldsForTypingAndPasting) {
    click(screen().txtShort);
    type("abcd");
    EXPECT_EQ(screen().txtShort.text(), "abc");
    press(Qt::Key_Home);
    type("x");
    EXPECT_EQ(screen().txtShort.text(), "abc");
    press(Qt::Key_A, Qt::ControlModifier);
    paste(QString::fromUtf8("ä\xF0\x9F\x8E\xB3\xF0\x9F\x8E\xB3yz"));
    EXPECT_EQ(screen().txtShort.text(), "ä\xF0\x9F\x8E\xB3\xF0\x9F\x8E\xB3");
    press(Qt::Key_A, Qt::ControlModifier);
    paste(QString::fromUtf8("yz\xF0\x9F\x8E\xB3\xF0\x9F\x8E\xB3"));
    EXPECT_EQ(screen().txtShort.text(), "yz\xF0\x9F\x8E\xB3");
}

TEST_F(TextTest, PastingKeepsABoxOfOneLineOnOneLine) {
    click(screen().txtName);
    paste("/home/ann\r\nand\n");
    EXPECT_EQ(screen().txtName.text(), "/home/ann and");
    EXPECT_EQ(nameEdit().text(), "/home/ann and");
}

TEST_F(TextTest, TextFromCodeIsNotCut) {
    setText(screen().txtShort, "abcdef");
    EXPECT_EQ(widget<QLineEdit>(screen().txtShort).text(), "abcdef");
    const std::string endless(100'000, 'x');
    setText(screen().txtName, endless);
    EXPECT_EQ(nameEdit().text().size(), 100'000);
}

class VeryLongText : public TextTest {
protected:
    /// Follows a text of 300,000 characters and what `shown` lays out of it, when its box is entered, typed
    /// in at its beginning, emptied, and typed over. End goes to the end with these keys.
    void followInto(TextBox& box, const std::function<QString()>& shown, Qt::KeyboardModifiers toEnd) {
        const std::string text = std::string(150'000, 'a') + std::string(150'000, 'b');
        setText(box, text);
        EXPECT_TRUE(shown() == QString(100'000, 'a'));
        click(box);
        EXPECT_TRUE(box.text() == text);
        press(Qt::Key_A, Qt::ControlModifier);
        press(Qt::Key_Left);
        type("xy");
        EXPECT_TRUE(box.text() == "xy" + text);
        EXPECT_TRUE(shown() == "xy" + QString(100'000, 'a'));
        press(Qt::Key_End, Qt::ShiftModifier | toEnd);
        press(Qt::Key_Delete);
        EXPECT_TRUE(box.text() == "xy" + text.substr(100'000));
        press(Qt::Key_Backspace);
        press(Qt::Key_Backspace);
        EXPECT_TRUE(shown() == QString(50'000, 'a') + QString(50'000, 'b'));
        press(Qt::Key_A, Qt::ControlModifier);
        type("z");
        EXPECT_EQ(box.text(), "z");
        EXPECT_EQ(shown(), "z");
    }
};

TEST_F(VeryLongText, IsLaidOutAtItsBeginningOnly) {
    followInto(
        screen().txtName, [this] { return nameEdit().text(); }, Qt::NoModifier);
}

TEST_F(VeryLongText, IsLaidOutAtItsBeginningOnlyInABoxOfSeveralLines) {
    followInto(
        screen().txtLines, [this] { return linesEdit().toPlainText(); }, Qt::ControlModifier);
}

TEST_F(VeryLongText, IsToldAsOneThatGoesOn) {
    setText(screen().txtName, std::string(100'000, 'a'));
    EXPECT_EQ(nameEdit().toolTip(), "Say \"Hello\"");
    setText(screen().txtName, std::string(99'999, 'a') + "\xF0\x9F\x8E\xB3");
    EXPECT_EQ(nameEdit().text().size(), 99'999) << "half a character is shown";
    EXPECT_EQ(
        nameEdit().toolTip(),
        "Only the beginning of this very long text is shown. What follows stays as it is, unless all is "
        "typed over.");
}

TEST_F(TextTest, TextFromCodeIsNotCutWhenItIsShortened) {
    setText(screen().txtShort, "abcdef");
    click(screen().txtShort);
    press(Qt::Key_End);
    type("x");
    EXPECT_EQ(screen().txtShort.text(), "abcdef");
    press(Qt::Key_Backspace);
    type("x");
    EXPECT_EQ(screen().txtShort.text(), "abcde");
    EXPECT_EQ(widget<QLineEdit>(screen().txtShort).text(), "abcde");
}

TEST_F(TextTest, TextIsSeenFromItsBeginningOnceItIsLeft) {
    type("a long text");
    EXPECT_EQ(nameEdit().cursorPosition(), 11);
    click(screen().txtShort);
    EXPECT_EQ(nameEdit().cursorPosition(), 0);
    EXPECT_FALSE(nameEdit().hasSelectedText());
}

TEST_F(TextTest, CursorStaysWhereTheUserIs) {
    type("abcd");
    nameEdit().setCursorPosition(1);
    display.perform([] {});
    EXPECT_EQ(nameEdit().cursorPosition(), 1);
}

TEST_F(TextTest, SelectionIsTheScreens) {
    setText(screen().txtName, "abc");
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_TRUE(screen().txtName.isAllSelected());
    press(Qt::Key_Right, Qt::ControlModifier);
    EXPECT_FALSE(screen().txtName.isAllSelected());
    type("d");
    EXPECT_EQ(screen().txtName.text(), "abcd");
}

TEST_F(TextTest, SelectionIsLeftAtItsEnds) {
    setText(screen().txtName, "abc");
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_Left);
    type("x");
    EXPECT_EQ(screen().txtName.text(), "xabc");
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_Right);
    type("y");
    EXPECT_EQ(screen().txtName.text(), "xabcy");
    nameEdit().setSelection(2, 2);
    press(Qt::Key_Left);
    EXPECT_EQ(nameEdit().cursorPosition(), 2);
}

TEST_F(TextTest, SelectionOutlastsABoxAndAMenu) {
    setText(screen().txtName, "abc");
    press(Qt::Key_A, Qt::ControlModifier);
    answerNext(Answer::OK);
    ask({.text = "Well?"});
    EXPECT_EQ(nameEdit().selectedText(), "abc");
    window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    press(Qt::Key_F, Qt::AltModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QApplication::activePopupWidget()->close();
    QTest::qWait(1);
    EXPECT_EQ(window().focusWidget(), &nameEdit());
    EXPECT_EQ(nameEdit().selectedText(), "abc");
}

TEST_F(TextTest, ReadOnlyBoxTakesNothing) {
    setText(screen().txtShown, "as it is");
    click(screen().txtShown);
    type("x");
    EXPECT_EQ(screen().txtShown.text(), "as it is");
    EXPECT_EQ(widget<QLineEdit>(screen().txtShown).text(), "as it is");
}

TEST_F(TextTest, WhatCannotBeWrittenIntoIsQuietButReadable) {
    setText(screen().cellOne, "X");
    const QPalette& usual = window().palette();
    const QPalette& off = widget(screen().cellOne).palette();
    EXPECT_EQ(off.color(QPalette::Disabled, QPalette::Text),
              usual.color(QPalette::Active, QPalette::WindowText));
    EXPECT_EQ(off.color(QPalette::Disabled, QPalette::Base), usual.color(QPalette::Active, QPalette::Window));
    display.perform([this] { screen().cellOne.setEnabled(true); });
    EXPECT_EQ(widget(screen().cellOne).palette().color(QPalette::Base), usual.color(QPalette::Base));
}

TEST_F(TextTest, LinesAreEndedAsTheToolkitDoes) {
    setText(screen().txtLines, "one\r\ntwo\rthree");
    EXPECT_EQ(linesEdit().toPlainText(), "one\ntwo\nthree");
    click(screen().txtLines);
    EXPECT_TRUE(linesEdit().textCursor().hasSelection());
    press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_FALSE(screen().txtLines.isAllSelected());
    type("!");
    EXPECT_EQ(screen().txtLines.text(), "one\ntwo\nthree!");
}

TEST_F(TextTest, TextThatHasNotChangedIsLeftAlone) {
    setText(screen().txtLines, "one");
    {
        const QSignalBlocker quiet(&nameEdit());
        nameEdit().setText("nobody compares this");
    }
    linesEdit().blockSignals(true);
    linesEdit().setPlainText("nor this");
    linesEdit().blockSignals(false);
    display.perform([this] { screen().cmdGo.setEnabled(false); });
    EXPECT_EQ(nameEdit().text(), "nobody compares this");
    EXPECT_EQ(linesEdit().toPlainText(), "nor this");
}

TEST_F(TextTest, TextOfAScreenThatIsNotSeenIsShownWithTheScreen) {
    load("frmOther");
    display.perform([this] { program.screens.hide(screen()); });
    setText(screen().txtName, "later");
    EXPECT_EQ(nameEdit().text(), "");
    display.perform([this] { program.screens.show(screen()); });
    EXPECT_EQ(nameEdit().text(), "later");
}

TEST_F(TextTest, WhatTheScreenDoesNotTakeIsShownNoMore) {
    setText(screen().txtName, "a");
    screen().txtName.onChange = [this] { screen().txtName.setText("a"); };
    type("b");
    EXPECT_EQ(screen().txtName.text(), "a");
    EXPECT_EQ(nameEdit().text(), "a");
}

TEST_F(TextTest, BlanksThatDoNotBreakStay) {
    setText(screen().txtLines, "a\u00a0b");
    click(screen().txtLines);
    press(Qt::Key_End, Qt::ControlModifier);
    type("c");
    EXPECT_EQ(screen().txtLines.text(), "a\u00a0bc");
}

TEST_F(TextTest, EveryKindOfLineEndIsTheSame) {
    click(screen().txtLines);
    type("one");
    press(Qt::Key_Return);
    type("two");
    press(Qt::Key_Return, Qt::ShiftModifier);
    type("three");
    EXPECT_EQ(screen().txtLines.text(), "one\ntwo\nthree");
}

TEST_F(TextTest, WhatIsOnlyReadIsSeenFromItsBeginning) {
    program.screens.add("frmAbout", [this] { return std::make_unique<frmAbout>(program); });
    load("frmAbout");
    const auto& terms = widget<QPlainTextEdit>(screen<frmAbout>("frmAbout").Text1);
    ASSERT_GT(terms.verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(terms.verticalScrollBar()->value(), 0);
    EXPECT_EQ(terms.textCursor().position(), 0);
}

TEST_F(TextTest, MarkOfTheByteOrderStays) {
    setText(screen().txtName, "\uFEFFa");
    click(screen().txtName);
    press(Qt::Key_End);
    type("b");
    EXPECT_EQ(screen().txtName.text(), "\uFEFFab");
}

TEST_F(TextTest, NothingIsDroppedIntoABox) {
    EXPECT_FALSE(nameEdit().acceptDrops());
    EXPECT_FALSE(linesEdit().acceptDrops());
}

}  // namespace tallybrook::test
