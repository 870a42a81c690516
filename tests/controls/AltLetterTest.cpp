#include "controls/Keyboard.h"
#include "shell/ProgramScreen.h"
#include "support/TestDisplay.h"

#include <optional>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

/// A menu, a box and a button with one letter, and groups whose captions have letters.
class Letters : public ProgramScreen {
public:
    explicit Letters(Program& owner) : ProgramScreen(owner, "frmLetters", "Letters") {
        optOff.setEnabled(false);
        cmdForward.onClick = [this] { ++presses; };
        cmdOther.onClick = [this] { ++presses; };
    }

    Menu mnuFile{*this, "mnuFile", "&File"};
    TextBox txtFoot{*this, "txtFoot"};
    Label lblFoot{*this, "lblFoot", "&Foot Position", txtFoot};
    Button cmdForward{*this, "cmdForward", "&Forward"};
    Button cmdOther{*this, "cmdOther", "&Other"};
    OptionGroup types;
    GroupBox fraType{*this, "fraType", "Event &Type"};
    OptionButton optOff{fraType, "optOff", types, "Off"};
    GroupBox fraInner{fraType, "fraInner"};
    OptionButton optOn{fraInner, "optOn", types, "On"};
    Menu mnuForward{mnuFile, "mnuForward", "&Forward", cmdForward};
    Menu mnuOther{mnuFile, "mnuOther", "&Other", cmdOther};

    int presses = 0;

    Layout layout() override { return layout::space(); }
    void onLoad() override { screens().show(*this); }
    void onClose() override {}
};

class AltLetter : public testing::Test {
protected:
    AltLetter() {
        program.screens.add("frmLetters", [this] { return std::make_unique<Letters>(program); });
        program.screens.load("frmLetters");
        screen = static_cast<Letters*>(program.screens.find("frmLetters"));
        screen->cmdOther.focus();
    }
    /// Where the focus is after the key; the name of a menu that is to be opened instead.
    std::string press(const char* key) {
        const person::Press press = person::press(*screen, person::readKey(key));
        EXPECT_TRUE(press.used) << key;
        EXPECT_EQ(press.arrival, Arrival::Arrived) << key;
        const bool isMenu = press.target != nullptr && press.target->kind() == Control::Kind::Menu;
        return (isMenu ? press.target : screen->focused())->name();
    }

    TestDisplay display;
    SettableClock clock{makeDate(2026, 11, 14)};
    Program program{display, clock, "nowhere"};
    Letters* screen = nullptr;
};

TEST_F(AltLetter, OfSeveralMovesFromOneToTheNextAndPressesNone) {
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(press("Alt+F"), "mnuFile");
        EXPECT_EQ(press("Alt+F"), "txtFoot");
        EXPECT_EQ(press("Alt+F"), "cmdForward");
    }
    EXPECT_EQ(screen->presses, 0);
    EXPECT_EQ(screen->focused(), &screen->cmdForward);
    press("Space");
    EXPECT_EQ(screen->presses, 1);
}

TEST_F(AltLetter, OfAMenuAndTheFocusTakesTurns) {
    screen->txtFoot.setEnabled(false);
    screen->cmdForward.focus();
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(press("Alt+F"), "mnuFile");
        EXPECT_EQ(press("Alt+F"), "cmdForward");
    }
    EXPECT_EQ(screen->presses, 0);
}

TEST_F(AltLetter, OfAMenuBeginsAnewOnceTheFocusHasMoved) {
    EXPECT_EQ(press("Alt+F"), "mnuFile");
    press("Tab");
    screen->cmdOther.focus();
    EXPECT_EQ(press("Alt+F"), "mnuFile");
}

TEST_F(AltLetter, OfOneAlonePressesIt) {
    EXPECT_EQ(press("Alt+O"), "cmdOther");
    EXPECT_EQ(screen->presses, 1);
    screen->txtFoot.setEnabled(false);
    screen->mnuFile.setEnabled(false);
    EXPECT_EQ(press("Alt+F"), "cmdForward");  // of those that can be used it is alone
    EXPECT_EQ(screen->presses, 2);
}

TEST_F(AltLetter, OfAMenuAloneIsTheDisplays) {
    screen->txtFoot.setEnabled(false);
    screen->cmdForward.setEnabled(false);
    EXPECT_FALSE(person::press(*screen, person::readKey("Alt+F")).used);
}

TEST_F(AltLetter, OfALabelThatIsHiddenLeadsNowhere) {
    screen->mnuFile.setEnabled(false);
    screen->cmdForward.setEnabled(false);
    EXPECT_EQ(press("Alt+F"), "txtFoot");
    screen->lblFoot.setVisible(false);
    EXPECT_FALSE(person::press(*screen, person::readKey("Alt+F")).used);
}

TEST_F(AltLetter, OfAGroupLeadsToTheFirstInItThatCanTakeTheFocus) {
    EXPECT_EQ(press("Alt+T"), "optOn");
    EXPECT_FALSE(screen->optOn.value());
    screen->optOff.setEnabled(true);
    EXPECT_EQ(press("Alt+T"), "optOff");
    screen->fraType.setVisible(false);
    EXPECT_FALSE(person::press(*screen, person::readKey("Alt+T")).used);
}

TEST_F(AltLetter, StandsBehindASingleSign) {
    for (const auto& [caption, letter] :
         std::vector<std::pair<std::string, std::string>>{{"&file", "F"},
                                                          {"E&xit", "X"},
                                                          {"Pins && &Balls", "B"},
                                                          {"A&&B", ""},
                                                          {"&&&c", "C"},
                                                          {"&", ""},
                                                          {"x&", ""},
                                                          {"", ""},
                                                          {"&1", "1"}}) {
        screen->cmdOther.setCaption(caption);
        const std::optional<char> found = accessLetter(screen->cmdOther);
        EXPECT_EQ(found ? std::string(1, *found) : "", letter) << caption;
    }
}

TEST_F(AltLetter, IsToldInMenusWhereItIsTheButtonsAlone) {
    EXPECT_EQ(person::keysOf(screen->mnuOther), "Alt+O");
    EXPECT_EQ(person::keysOf(screen->mnuForward), "");
    screen->lblFoot.setCaption("Foot");
    EXPECT_EQ(person::keysOf(screen->mnuForward), "");  // the menu has it too
    screen->mnuFile.setCaption("File");
    EXPECT_EQ(person::keysOf(screen->mnuForward), "Alt+F");
}

}  // namespace

}  // namespace tallybrook::test
