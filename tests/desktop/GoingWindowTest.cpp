// Windows whose screens go in the middle of what is done at them.

#include "Lists.h"

namespace tallybrook::test {

template <typename Base>
class Going : public Base {
protected:
    using Base::Base;

    /// A handler that unloads the screen, and asks something before whoever has called it returns.
    std::function<void()> leaving(const std::string& name) {
        return [this, name] {
            this->program.screens.unload(*this->program.screens.find(name));
            this->display.messageBox({.text = "Gone."});
        };
    }
    /// The window lives until what is done at it has returned, and no longer.
    void expectGoneAfter(const std::function<void()>& action) {
        const QPointer<QWidget> going = this->display.windowOf(*this->program.screens.front());
        this->answerNext(Answer::OK);
        action();
        EXPECT_FALSE(going.isNull());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(going.isNull());
    }
};

class GoingWindowTest : public Going<Desktop> {
protected:
    GoingWindowTest() {
        load("frmOther");
        display.perform([this] { program.screens.show(screen()); });
    }
    std::function<void()> leaving() { return Going::leaving("frmMain"); }
};

TEST_F(GoingWindowTest, OutlivesTheBoxAfterItsAltLetter) {
    screen().cmdGo.onClick = leaving();
    expectGoneAfter([this] { press(Qt::Key_G, Qt::AltModifier); });
}

TEST_F(GoingWindowTest, OutlivesTheBoxAfterItsShortcut) {
    screen().mnuHelp.onClick = leaving();
    expectGoneAfter([this] { press(Qt::Key_F1); });
}

TEST_F(GoingWindowTest, OutlivesTheBoxAfterEscape) {
    screen().cmdStop.onClick = leaving();
    expectGoneAfter([this] { press(Qt::Key_Escape); });
}

TEST_F(GoingWindowTest, OutlivesTheBoxAfterTab) {
    screen().txtName.onLostFocus = leaving();
    expectGoneAfter([this] { press(Qt::Key_Tab); });
}

TEST_F(GoingWindowTest, OutlivesTheBoxAfterAClick) {
    screen().cmdGo.onClick = leaving();
    expectGoneAfter([this] { click(screen().cmdGo); });
}

TEST_F(GoingWindowTest, OutlivesTheBoxAfterAPressThatLeavesABox) {
    screen().txtName.onLostFocus = leaving();
    expectGoneAfter([this] { click(screen().txtLines); });
}

TEST_F(GoingWindowTest, OutlivesTheBoxAfterAMenuEntry) {
    screen().mnuInner.onClick = leaving();
    expectGoneAfter([this] { display.actionOf(screen().mnuInner)->trigger(); });
}

TEST_F(GoingWindowTest, OutlivesTheBoxAfterACharacter) {
    screen().txtName.onChange = leaving();
    expectGoneAfter([this] { type("a"); });
}

TEST_F(GoingWindowTest, OutlivesTheBoxAfterACharacterOfSeveralLines) {
    display.perform([this] { screen().txtLines.focus(); });
    screen().txtLines.onChange = leaving();
    expectGoneAfter([this] { type("a"); });
}

TEST_F(GoingWindowTest, OutlivesTheBoxAfterItsClose) {
    screen().closed = leaving();
    expectGoneAfter([this] { window().close(); });
}

TEST_F(GoingWindowTest, TakesNothingThatIsStillOnItsWay) {
    screen().txtName.onLostFocus = [this] { program.screens.unload(screen()); };
    const QPointer<QWidget> lines = &widget(screen().txtLines);
    const QPointer<QWidget> go = &widget(screen().cmdGo);
    click(screen().txtLines);
    ASSERT_FALSE(lines.isNull());
    QTest::keyClicks(lines, "abc");
    QTest::mouseClick(go, Qt::LeftButton);
    EXPECT_EQ(display.lastArrival(), Arrival::Refused);
}

class GoingListsTest : public Going<Lists> {
protected:
    GoingListsTest() : Going(3) {}
    std::function<void()> leaving() { return Going::leaving("frmLists"); }
};

TEST_F(GoingListsTest, OutliveTheBoxAfterAnItem) {
    lists().lstNames.onClick = leaving();
    expectGoneAfter([this] { clickItem(names(), names().model()->index(1, 0)); });
}

TEST_F(GoingListsTest, OutliveTheBoxAfterAKeyInAList) {
    display.perform([this] { lists().lstNames.focus(); });
    lists().lstNames.onClick = leaving();
    expectGoneAfter([this] { press(Qt::Key_Down); });
}

TEST_F(GoingListsTest, OutliveTheBoxAfterAFolder) {
    display.perform([this] { lists().dirFolder.reveal(at("a")); });
    lists().dirFolder.onChange = leaving();
    expectGoneAfter([this] { clickItem(tree(), folderAt("a")); });
}

TEST_F(GoingListsTest, OutliveTheBoxAfterAPressThatOpensAList) {
    lists().leaving = leaving();
    expectGoneAfter([this] { QTest::mousePress(&kind(), Qt::LeftButton); });
}

TEST_F(GoingListsTest, OutliveTheBoxAfterARow) {
    auto& rows = widget<QAbstractItemView>(lists().dgdEvents);
    display.perform([this] {
        lists().adoEvents.setRecordSource("SELECT * FROM tblEventInfo");
        lists().adoEvents.Refresh();
    });
    lists().leaving = leaving();
    expectGoneAfter([&] { clickItem(rows, rows.model()->index(1, 0)); });
}

}  // namespace tallybrook::test
