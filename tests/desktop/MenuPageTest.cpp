#include "Fonts.h"
#include "OwnScreens.h"

#include <QLabel>
#include <QPushButton>

namespace tallybrook::test {

class MenuPageTest : public OwnScreens {
protected:
    MenuPageTest() { EXPECT_TRUE(QTest::qWaitForWindowActive(&window())); }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(window().focusWidget(), key, modifiers);
    }
    /// The entry that has the focus; empty where none has.
    [[nodiscard]] std::string focused() {
        const auto* const entry = qobject_cast<const QPushButton*>(window().focusWidget());
        return entry == nullptr ? "" : entry->text().toStdString();
    }
};

TEST_F(MenuPageTest, NothingHasTheFocusUntilAKeyIsPressed) {
    EXPECT_EQ(focused(), "");
}

TEST_F(MenuPageTest, TabWalksThroughTheEntriesRoundAndRound) {
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), "Handheld Setup");
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), "Exit");
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), "Add From PDA");
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focused(), "About");
}

TEST_F(MenuPageTest, ArrowsWalkDownAndAside) {
    press(Qt::Key_Down);
    EXPECT_EQ(focused(), "Handheld Setup");
    press(Qt::Key_Right);
    EXPECT_EQ(focused(), "Add From PDA");
    press(Qt::Key_Down);
    EXPECT_EQ(focused(), "Add From Form");
    press(Qt::Key_Left);
    EXPECT_EQ(focused(), "Exit");
    press(Qt::Key_Left);  // there is nothing
    EXPECT_EQ(focused(), "Exit");
    press(Qt::Key_Up);
    EXPECT_EQ(focused(), "Handheld Setup");
}

TEST_F(MenuPageTest, ReturnPresses) {
    press(Qt::Key_Right);
    press(Qt::Key_Right);
    press(Qt::Key_Down);
    EXPECT_EQ(focused(), "Add From Form");
    press(Qt::Key_Return);
    EXPECT_EQ(screen().name(), "frmEvent");
}

TEST_F(MenuPageTest, ReportsAreWalkedAndPressedTheSameWay) {
    click("mnuReports");
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
    EXPECT_EQ(focused(), "");
    press(Qt::Key_Tab);
    const std::string first = focused();
    EXPECT_NE(first, "");
    press(Qt::Key_Down);
    EXPECT_NE(focused(), first);
    for (int entry = 0; entry < 20 && focused() != "Event Reports"; ++entry)
        press(Qt::Key_Tab);
    press(Qt::Key_Return);
    EXPECT_EQ(screen().name(), "frmSearchEvents");
}

TEST_F(MenuPageTest, SpaceAndEnterPress) {
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Enter}) {
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
        press(Qt::Key_Tab);
        press(key);
        EXPECT_EQ(screen().name(), "frmHHSetup");
        click("cmdMain", {Answer::Yes});
    }
}

TEST_F(MenuPageTest, EntriesThatAreOffOrHiddenArePassedOver) {
    display.perform([this] {
        control("mnuHHSetup").setEnabled(false);
        control("mnuSyncPDA").setVisible(false);
    });
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), "Exit");
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), "Add From Form");
    press(Qt::Key_Left);
    EXPECT_EQ(focused(), "Exit");
    for (const auto modifier : {Qt::ControlModifier, Qt::AltModifier}) {
        press(Qt::Key_Down, modifier);
        EXPECT_EQ(focused(), "Exit") << modifier;
    }
}

TEST_F(MenuPageTest, SignsInACaptionAreShown) {
    display.perform([this] { control("mnuExit").setCaption("Save && E&xit"); });
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), "Save && Exit") << "the toolkit takes two for one that is shown";
}

TEST_F(MenuPageTest, KeysOfTheScreenStayItsOwn) {
    press(Qt::Key_Tab);
    press(Qt::Key_F1);
    EXPECT_EQ(screen().name(), "frmMain");
    EXPECT_EQ(focused(), "Handheld Setup");
}

TEST_F(MenuPageTest, IsNotLostOnALargeDisplay) {
    const QPushButton* const first = window().findChildren<QPushButton*>().front();
    const QWidget& title = *window().widgetOf(control("lblTitle"));
    EXPECT_EQ(first->font(), window().font());
    const int usual = title.fontMetrics().height();
    const QSize size = window().size();
    window().resize(1920, 1060);
    QTest::qWait(1);
    EXPECT_GT(first->fontMetrics().height(), window().fontMetrics().height() * 4 / 3);
    EXPECT_GT(title.fontMetrics().height(), usual * 4 / 3);
    for (const QPushButton* const entry : window().findChildren<QPushButton*>())
        EXPECT_GE(entry->width(), entry->sizeHint().width()) << entry->text().toStdString();
    window().resize(size);
    QTest::qWait(1);
    EXPECT_EQ(first->font(), window().font());
}

/// On a desktop that tells the size of its letters in pixels.
class MenuPageInPixels : private Fonts, public OwnScreens {
protected:
    MenuPageInPixels() : Fonts(inPixels(14)) {}
};

TEST_F(MenuPageInPixels, GrowsWithItsWindowToo) {
    window().resize(3000, 2000);
    QTest::qWait(1);
    EXPECT_EQ(window().findChildren<QPushButton*>().front()->font().pixelSize(), 22);  // 1.6 times
    EXPECT_EQ(window().widgetOf(control("lblTitle"))->font().pixelSize(), 33);         // half as much again
}

TEST_F(MenuPageTest, HeadingsStayWithWhatTheyHead) {
    window().resize(1800, 1000);
    QTest::qWait(1);
    const QWidget& title = *window().widgetOf(control("lblTitle"));
    QPushButton* const first = window().findChildren<QPushButton*>().front();
    const int gap =
        first->mapTo(&window(), QPoint()).y() - title.mapTo(&window(), QPoint(0, title.height())).y();
    EXPECT_LT(gap, 80);
}

}  // namespace tallybrook::test
