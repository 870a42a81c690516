#include "Desktop.h"

#include <QAccessible>
#include <QPlainTextEdit>
#include <QWindow>
#include <algorithm>

namespace tallybrook::test {

class MouseTest : public Desktop {
protected:
    MouseTest() {
        display.perform([this] {
            screen().txtShort.setText("abc");
            screen().txtLines.setText("one\r\ntwo");
        });
    }
    QLineEdit& shortEdit() { return widget<QLineEdit>(screen().txtShort); }
};

TEST_F(MouseTest, FirstPressSelectsTheWholeText) {
    click(screen().txtShort);
    EXPECT_EQ(shortEdit().selectedText(), "abc");
    EXPECT_TRUE(screen().txtShort.isAllSelected());
    click(screen().txtLines);
    EXPECT_EQ(widget<QPlainTextEdit>(screen().txtLines).textCursor().selectedText().size(), 7);
    EXPECT_FALSE(shortEdit().hasSelectedText());
}

TEST_F(MouseTest, HandThatShakesAtTheFirstPressChangesNothing) {
    QTest::mousePress(&shortEdit(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 8));
    QMouseEvent move(QEvent::MouseMove, QPointF(30, 8), QPointF(30, 8), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(&shortEdit(), &move);
    QTest::mouseRelease(&shortEdit(), Qt::LeftButton, Qt::NoModifier, QPoint(30, 8));
    EXPECT_EQ(shortEdit().selectedText(), "abc");
}

TEST_F(MouseTest, SecondPressPutsTheCursor) {
    click(screen().txtShort);
    QTest::mouseClick(&shortEdit(), Qt::LeftButton, Qt::NoModifier, QPoint(2, 8));
    EXPECT_FALSE(shortEdit().hasSelectedText());
    EXPECT_FALSE(screen().txtShort.isAllSelected());
}

TEST_F(MouseTest, OtherButtonsArriveAtTextBoxesOnly) {
    click(screen().cmdGo, Qt::RightButton);
    EXPECT_EQ(log(), Lines{});
    click(screen().txtShort, Qt::RightButton);
    EXPECT_EQ(log(), (Lines{"lost txtName", "got txtShort"}));
}

TEST_F(MouseTest, MenuOfABoxComesOnlyWhereTheFocusIs) {
    QContextMenuEvent asked(QContextMenuEvent::Mouse, QPoint(5, 5), QPoint(5, 5));
    EXPECT_TRUE(QApplication::sendEvent(&shortEdit(), &asked));
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    click(screen().txtShort);
    EXPECT_TRUE(QApplication::sendEvent(&shortEdit(), &asked));
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QApplication::activePopupWidget()->close();
}

TEST_F(MouseTest, ReleaseThatABoxHasTakenStillMakesTheClick) {
    screen().txtName.onLostFocus = [this] { display.messageBox({.text = "Well?"}); };
    answerNext(Answer::OK);
    QWidget& target = widget(screen().cmdGo);
    QTest::mousePress(window().windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      target.mapTo(&window(), target.rect().center()));
    EXPECT_EQ(log(), (Lines{"got cmdGo", "click cmdGo"}));
    EXPECT_FALSE(widget<QAbstractButton>(screen().cmdGo).isDown());
    QTest::mouseRelease(window().windowHandle(), Qt::LeftButton, Qt::NoModifier,
                        target.mapTo(&window(), target.rect().center()));
    EXPECT_EQ(log(), Lines{});
}

TEST_F(MouseTest, PressAndReleaseOfAMouseMakeOneClick) {
    QWidget& target = widget(screen().cmdGo);
    QTest::mouseClick(window().windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      target.mapTo(&window(), target.rect().center()));
    EXPECT_EQ(log(), (Lines{"lost txtName", "got cmdGo", "click cmdGo"}));
}

TEST_F(MouseTest, MenuEntryTakesNoFocus) {
    display.actionOf(screen().mnuInner)->trigger();
    EXPECT_EQ(log(), Lines{"click mnuInner"});
    EXPECT_TRUE(screen().txtName.hasFocus());
}

TEST_F(MouseTest, ButtonThatWasClickedBeforeTakesTheFocusWhenAScreenReaderPressesIt) {
    click(screen().cmdGo);
    display.perform([this] { screen().txtName.focus(); });
    log();
    QAccessible::queryAccessibleInterface(&widget(screen().cmdGo))
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::pressAction());
    ASSERT_TRUE(QTest::qWaitFor([this] { return std::ranges::count(screen().log, "click cmdGo") != 0; }));
    EXPECT_EQ(log(), (Lines{"lost txtName", "got cmdGo", "click cmdGo"}));
}

}  // namespace tallybrook::test
