#include "Heard.h"
#include "OwnScreens.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <set>

namespace tallybrook::test {

class AccessibilityTest : public OwnScreens {
protected:
    [[nodiscard]] QAccessibleInterface& told(const std::string& name) {
        return *QAccessible::queryAccessibleInterface(window().widgetOf(control(name)));
    }
    [[nodiscard]] QString nameOf(const std::string& name) { return told(name).text(QAccessible::Name); }
    [[nodiscard]] QString descriptionOf(const std::string& name) {
        return told(name).text(QAccessible::Description);
    }
    [[nodiscard]] static std::string focusedIn(const Screen& screen) {
        return screen.focused() == nullptr ? "" : screen.focused()->name();
    }
    void focusFromOutside(const std::string& name) {
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
        told(name).actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
        QTest::qWait(0);
    }
    void writeFromOutside(const std::string& name, const QString& text) {
        QAccessibleInterface& box = told(name);
        box.editableTextInterface()->replaceText(0, box.textInterface()->characterCount(), text);
    }
};

namespace {

/// What kind of thing a control is to a screen reader.
QAccessible::Role roleOf(const Control& control) {
    switch (control.kind()) {
        case Control::Kind::TextBox:
            return QAccessible::EditableText;
        case Control::Kind::Button:
            return QAccessible::Button;
        case Control::Kind::OptionButton:
            return QAccessible::RadioButton;
        case Control::Kind::CheckBox:
            return QAccessible::CheckBox;
        case Control::Kind::ComboBox:
        case Control::Kind::DriveList:
            return QAccessible::ComboBox;
        case Control::Kind::ListBox:
            return QAccessible::List;
        case Control::Kind::FolderList:
            return QAccessible::Tree;
        case Control::Kind::Grid:
            return QAccessible::Table;
        case Control::Kind::Label:
            return QAccessible::StaticText;
        case Control::Kind::GroupBox:
            return QAccessible::Grouping;
        case Control::Kind::Picture:
            return QAccessible::Graphic;
        case Control::Kind::Menu:
            break;
    }
    return QAccessible::NoRole;
}

}  // namespace

TEST_F(AccessibilityTest, EveryControlIsToldAsWhatItIs) {
    tour([this] {
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
        for (const Control* const one : screen().controls()) {
            QWidget* const shown = window().widgetOf(*one);
            if (shown == nullptr || !shown->isVisibleTo(&window()))
                continue;
            SCOPED_TRACE(screen().name() + "." + one->name());
            const QAccessibleInterface& told = *QAccessible::queryAccessibleInterface(shown);
            EXPECT_EQ(told.role(), roleOf(*one));
            if (one->isFocusable()) {
                EXPECT_EQ(told.state().disabled, !one->isEnabled());
                EXPECT_EQ(told.state().focused, one->hasFocus());
            }
        }
    });
}

TEST_F(AccessibilityTest, NoTwoControlsThatCanBeUsedHaveOneName) {
    tour([this] {
        std::set<QString> names;
        for (const Control* const one : screen().controls()) {
            const QWidget* const shown = window().widgetOf(*one);
            const bool isDone = one->name().ends_with("Done");  // its group tells of which ball
            if (shown != nullptr && one->canTakeFocus() && !isDone) {
                EXPECT_TRUE(names.insert(nameOf(one->name())).second)
                    << screen().name() << "." << one->name() << " " << nameOf(one->name()).toStdString();
            }
        }
    });
}

TEST_F(AccessibilityTest, YesAndNoComeWithTheirQuestion) {
    beginEvent();
    EXPECT_EQ(nameOf("optAltLanes(0)"), "Alternate Lanes? Yes");
    EXPECT_EQ(nameOf("optScType(1)"), "Line Score");
    beginFrames();
    EXPECT_EQ(nameOf("optFirstYes"), "Strike? Yes");
    EXPECT_EQ(nameOf("optSecondNo"), "Spare? No");
    display.perform([this] { dynamic_cast<Label&>(control("lblSecond")).setCaption("Strike?"); });
    EXPECT_EQ(nameOf("optSecondNo"), "Strike? No");
}

TEST_F(AccessibilityTest, WhatItsLabelSaysInPartIsNamedWhole) {
    beginEvent();
    beginFrames();
    EXPECT_EQ(nameOf("txtGameNum"), "Game");
    EXPECT_EQ(nameOf("txtNumGames"), "Number of Games");
}

TEST_F(AccessibilityTest, ListThatOpensIsToldWithWhatItIsFor) {
    click("mnuReports");
    click("mnuRptEvent");
    EXPECT_EQ(descriptionOf("cboListField(0)"), "");
    pick("cboListField(0)", "Event Name");
    EXPECT_EQ(told("cboListField(0)").text(QAccessible::Value), "Event Name");
    EXPECT_EQ(descriptionOf("cboListField(0)"), "Search For, row 1");
    auto& list = dynamic_cast<QComboBox&>(*window().widgetOf(control("cboListField(0)")));
    list.showPopup();
    EXPECT_EQ(QAccessible::queryAccessibleInterface(list.view())->text(QAccessible::Name),
              "Search For, row 1");
    list.hidePopup();
}

TEST_F(AccessibilityTest, PinsOfABallThatIsNotBowledAreNotDown) {
    beginEvent();
    beginFrames();
    EXPECT_EQ(nameOf("chkFirstPinfall(7)"), "Pin 7");
    click("optFirstNo");
    EXPECT_EQ(nameOf("chkFirstPinfall(7)"), "Pin 7, knocked down");
    click("chkFirstPinfall(7)");
    EXPECT_EQ(nameOf("chkFirstPinfall(7)"), "Pin 7, standing");
    click("cmdFirstDone");
    EXPECT_TRUE(control("chkSecondPinfall(7)").isEnabled());
    EXPECT_EQ(nameOf("chkSecondPinfall(7)"), "Pin 7");
    click("optSecondYes");
    EXPECT_EQ(nameOf("chkSecondPinfall(7)"), "Pin 7, knocked down");
    EXPECT_EQ(nameOf("chkFillPinfall(7)"), "Pin 7");
}

TEST_F(AccessibilityTest, WhatIsDrawnAsOffIsToldAsOff) {
    beginEvent();
    beginFrames();
    for (const char* const off : {"fraSecondPinfall", "lblSecond", "lblSecondPins", "fraFillPinfall"})
        EXPECT_TRUE(told(off).state().disabled) << off;
    for (const char* const on : {"fraFirstPinfall", "lblFirst", "fraLineScore", "lblFraNum(1)"})
        EXPECT_FALSE(told(on).state().disabled) << on;
    click("optFirstNo");
    click("chkFirstPinfall(7)");
    click("cmdFirstDone");
    EXPECT_FALSE(told("fraSecondPinfall").state().disabled);
    EXPECT_FALSE(told("lblSecond").state().disabled);
}

TEST_F(AccessibilityTest, OnlyNewNamesAreTold) {
    beginEvent();
    beginFrames();
    const Heard heard;
    display.perform([this] { person::tab(screen()); });
    EXPECT_EQ(Heard::take(QAccessible::NameChanged), std::vector<std::string>{});
    click("optFirstNo");
    EXPECT_EQ(Heard::take(QAccessible::NameChanged).size(), 10);  // the pins that are down by now
    click("chkFirstPinfall(7)");
    EXPECT_EQ(Heard::take(QAccessible::NameChanged), std::vector<std::string>{"chkFirstPinfall(7)"});
}

TEST_F(AccessibilityTest, FocusComesWithWhatHasBecomeOfTheFrame) {
    beginEvent();
    beginFrames();
    click("optFirstNo");
    click("chkFirstPinfall(3)");
    click("chkFirstPinfall(6)");
    click("chkFirstPinfall(10)");
    const Heard heard;
    click("cmdFirstDone");
    ASSERT_NE(screen().focused(), nullptr);
    const std::string focused = focusedIn(screen());
    EXPECT_EQ(descriptionOf(focused), "7 so far");
    EXPECT_EQ(Heard::take(QAccessible::DescriptionChanged), std::vector<std::string>{focused});
    click("optSecondYes");
    EXPECT_EQ(focusedIn(screen()), "txtComment");
    EXPECT_EQ(descriptionOf("txtComment"), "Spare");
    EXPECT_NE(descriptionOf(focused), "7 so far");
    click("cmdNextFrame");
    EXPECT_EQ(descriptionOf(focusedIn(screen())), "Frame 1: Spare. Frame 2 is next, lane 14.");
    click("txtBallUsed");
    EXPECT_EQ(descriptionOf("txtBallUsed").toStdString(), control("txtBallUsed").tip());
}

TEST_F(AccessibilityTest, FullGameComesWithItsScore) {
    beginEvent();
    beginFrames();
    for (int frame = 1; frame <= 9; ++frame) {
        click("optFirstYes");
        click("cmdNextFrame");
    }
    for (const char* const strike : {"optFirstYes", "optSecondYes", "optFillYes"})
        click(strike);
    click("cmdNextFrame", {Answer::Yes, Answer::No});  // the score is worked out, and not taken over
    click("cmdUpdFrame", {Answer::Yes});
    for (int frame = 1; frame <= 9; ++frame)
        click("cmdNextFrame");
    const Heard heard;
    click("cmdNextFrame", {Answer::OK, Answer::No});
    const std::string focused = focusedIn(screen());
    EXPECT_EQ(descriptionOf(focused), "Score 300");
    EXPECT_EQ(Heard::take(QAccessible::DescriptionChanged).back(), focused);  // after those of the boxes
}

TEST_F(AccessibilityTest, FocusFromOutsideGoesTheWayOfTheMouse) {
    click("mnuAddFromForm");
    EXPECT_EQ(focusedIn(screen()), "txtEvent");
    focusFromOutside("txtCenter");
    EXPECT_EQ(focusedIn(screen()), "txtCenter");
    EXPECT_EQ(window().focusWidget(), window().widgetOf(control("txtCenter")));
}

TEST_F(AccessibilityTest, WhatIsTurnedOnFromOutsideIsOn) {
    const auto turn = [this](const std::string& name) {
        told(name).actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
        QTest::qWait(0);
    };
    beginEvent();
    beginFrames();
    turn("optFirstNo");
    EXPECT_TRUE(told("optFirstNo").state().checked);
    EXPECT_EQ(nameOf("chkFirstPinfall(7)"), "Pin 7, knocked down");
    turn("chkFirstPinfall(7)");
    EXPECT_EQ(nameOf("chkFirstPinfall(7)"), "Pin 7, standing");
    turn("chkFirstPinfall(7)");
    EXPECT_EQ(nameOf("chkFirstPinfall(7)"), "Pin 7, knocked down");
    EXPECT_EQ(focusedIn(screen()), "chkFirstPinfall(7)");
    turn("optFirstNo");
    EXPECT_TRUE(told("optFirstNo").state().checked);  // as by a click on it
}

TEST_F(AccessibilityTest, FocusFromOutsideIsKeptWhereTheLeavingKeepsIt) {
    beginEvent();
    beginFrames();
    type("txtLaneNum", "99");
    answerNext(Answer::OK);  // no such lane
    focusFromOutside("txtBallUsed");
    EXPECT_EQ(focusedIn(screen()), "txtLaneNum");
    EXPECT_EQ(window().focusWidget(), window().widgetOf(control("txtLaneNum")));
    type("txtLaneNum", "13");
}

TEST_F(AccessibilityTest, TextFromOutsideGoesTheWayOfTheKeys) {
    click("mnuAddFromForm");
    const auto text = [this](const std::string& name) {
        return dynamic_cast<TextBox&>(control(name)).text();
    };
    writeFromOutside("txtCenter", "Brookside Lanes");
    EXPECT_EQ(text("txtCenter"), "Brookside Lanes");
    EXPECT_EQ(focusedIn(screen()), "txtCenter");
    writeFromOutside("txtCenter", "Millford Bowl");
    EXPECT_EQ(text("txtCenter"), "Millford Bowl");

    click("txtEvent");
    EXPECT_EQ(focusedIn(screen()), "txtLoc");  // where the center leads to
    fillEvent();
    writeFromOutside("txtEventName", "cannot be written");
    EXPECT_EQ(text("txtEventName"), "Thursday League");
    EXPECT_EQ(dynamic_cast<QLineEdit&>(*window().widgetOf(control("txtEventName"))).text(),
              "Thursday League");
    beginFrames();
    writeFromOutside("txtComment", "Two lines,\nwell spoken");
    EXPECT_EQ(focusedIn(screen()), "txtComment");
    EXPECT_EQ(dynamic_cast<QPlainTextEdit&>(*window().widgetOf(control("txtComment"))).toPlainText(),
              "Two lines,\nwell spoken");
}

TEST_F(AccessibilityTest, NothingIsDoneFromOutsideBehindABox) {
    click("mnuAddFromForm");
    hands.expect([this](QDialog& box) {
        writeFromOutside("txtEvent", "behind the box");
        told("cmdPrevious").actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        told("txtLoc").actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
        // A button that is pressed from outside stays down for a moment before it is clicked.
        const auto& button = dynamic_cast<QAbstractButton&>(*window().widgetOf(control("cmdPrevious")));
        EXPECT_TRUE(QTest::qWaitFor([&button] { return !button.isDown(); }));
        box.done(0);
    });
    display.perform([this] { display.messageBox({.text = "Well?"}); });
    EXPECT_EQ(screen().name(), "frmEvent");
    EXPECT_EQ(dynamic_cast<QLineEdit&>(*window().widgetOf(control("txtEvent"))).text(), "");
    EXPECT_EQ(focusedIn(screen()), "txtEvent");
    EXPECT_EQ(window().focusWidget(), window().widgetOf(control("txtEvent")));
}

TEST_F(AccessibilityTest, BoxesAreToldWithTheirText) {
    const Heard heard;
    hands.expect([](QDialog& window) {
        const QAccessibleInterface& box = *QAccessible::queryAccessibleInterface(&window);
        EXPECT_EQ(box.text(QAccessible::Name), "Sure?");
        EXPECT_EQ(box.text(QAccessible::Description), "Delete <it>?");
        EXPECT_EQ(Heard::take(QAccessible::Alert), std::vector<std::string>{"messageBox"});
        window.done(0);
    });
    display.perform([this] { display.messageBox({.text = "Delete <it>?", .title = "Sure?"}); });
}

}  // namespace tallybrook::test
