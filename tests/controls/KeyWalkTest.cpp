#include "controls/Keyboard.h"
#include "shell/ProgramScreen.h"
#include "support/TestDisplay.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

/// A rack with answers above it and a button below, and beside it what else takes keys.
class Bench : public ProgramScreen {
public:
    explicit Bench(Program& owner) : ProgramScreen(owner, "frmBench", "Bench") {
        for (Control* const control : controls())
            control->onClick = [this, control] { pressed += control->name() + "!"; };
        chkPin3.setEnabled(false);
        optFourth.setVisible(false);
    }

    TextBox txtOne{*this, "txtOne"};
    TextBox txtLines{*this, "txtLines", {.multiline = true, .tabStop = false}};
    OptionGroup answers;
    OptionButton optStrike{*this, "optStrike", answers, "&Strike"};
    OptionButton optSplit{*this, "optSplit", answers, "S&plit"};
    CheckBox chkPin1{*this, "chkPin1", "1", CheckBoxLook::Pin};
    CheckBox chkPin2{*this, "chkPin2", "2", CheckBoxLook::Pin};
    CheckBox chkPin3{*this, "chkPin3", "3", CheckBoxLook::Pin};
    CheckBox chkPin4{*this, "chkPin4", "4", CheckBoxLook::Pin};
    Button cmdRack{*this, "cmdRack", "&Rack"};
    GroupBox fraOthers{*this, "fraOthers"};
    OptionGroup others;
    OptionButton optFirst{fraOthers, "optFirst", others, "First"};
    OptionButton optSecond{fraOthers, "optSecond", others, "Second"};
    OptionButton optThird{fraOthers, "optThird", others, "Third"};
    OptionButton optFourth{fraOthers, "optFourth", others, "Fourth"};
    CheckBox chkPlain{fraOthers, "chkPlain", "Plain"};
    Button cmdGo{*this, "cmdGo", "&Go", {.isDefault = true}};
    Button cmdBack{*this, "cmdBack", "&Back", {.isCancel = true}};
    Menu mnuTop{*this, "mnuTop", "&Top"};
    Menu mnuFind{mnuTop, "mnuFind", "Find", "Ctrl+F"};
    Menu mnuNext{mnuTop, "mnuNext", "Next", "F3"};

    std::string pressed;

    Layout layout() override {
        return layout::row(
            {layout::column({layout::row({optStrike, optSplit}), layout::row({chkPin4}),
                             layout::row({layout::space(), chkPin2, chkPin3}), layout::row({chkPin1}),
                             layout::row({cmdRack})}),
             layout::column({layout::row({optFirst, optSecond, optThird, optFourth}), chkPlain}),
             layout::column({txtOne, txtLines, cmdGo, cmdBack})});
    }
    void onLoad() override { screens().show(*this); }
    void onClose() override {}
    void onHelp() override { pressed += "help!"; }
};

const std::vector<const char*> kMoves{"Tab",   "Shift+Tab", "Ctrl+Tab", "Return", "Enter",
                                      "Space", "Left",      "Right",    "Up",     "Down"};
const std::vector<const char*> kCommands{"Escape", "F1",     "F3", "F4",    "Ctrl+F",
                                         "Ctrl+f", "Ctrl+G", "F",  "Alt+G", "Alt+x"};

// Where each key leads from each control: what it presses, and where the focus is then. Keys that mean
// nothing are left out.
constexpr const char* kWalk = R"(
txtOne: Tab=>optStrike Shift+Tab=>cmdBack Return=cmdGo!>cmdGo Enter=cmdGo!>cmdGo
txtLines: Tab=>optStrike Shift+Tab=>txtOne
optStrike: Tab=>optSplit Shift+Tab=>txtOne Return=cmdGo!>cmdGo Enter=cmdGo!>cmdGo Space=optStrike! Left=>optSplit Right=>optSplit Down=>chkPin4
optSplit: Tab=>chkPin1 Shift+Tab=>optStrike Return=cmdGo!>cmdGo Enter=cmdGo!>cmdGo Space=optSplit! Left=>optStrike Right=>optStrike Down=>chkPin4
chkPin1: Tab=>chkPin2 Shift+Tab=>optSplit Return=cmdGo!>cmdGo Enter=cmdGo!>cmdGo Space=chkPin1! Left=>chkPin2 Right=>chkPin4 Up=>chkPin2 Down=>cmdRack
chkPin2: Tab=>chkPin4 Shift+Tab=>chkPin1 Return=cmdGo!>cmdGo Enter=cmdGo!>cmdGo Space=chkPin2! Left=>chkPin4 Right=>chkPin1 Up=>chkPin4 Down=>chkPin1
chkPin4: Tab=>cmdRack Shift+Tab=>chkPin2 Return=cmdGo!>cmdGo Enter=cmdGo!>cmdGo Space=chkPin4! Left=>chkPin1 Right=>chkPin2 Up=>optStrike Down=>chkPin2
cmdRack: Tab=>optFirst Shift+Tab=>chkPin4 Return=cmdRack! Enter=cmdRack! Space=cmdRack! Up=>chkPin1
optFirst: Tab=>optSecond Shift+Tab=>cmdRack Return=cmdGo!>cmdGo Enter=cmdGo!>cmdGo Space=optFirst! Left=>optThird Right=>optSecond Up=>optThird Down=>optSecond
optSecond: Tab=>optThird Shift+Tab=>optFirst Return=cmdGo!>cmdGo Enter=cmdGo!>cmdGo Space=optSecond! Left=>optFirst Right=>optThird Up=>optFirst Down=>optThird
optThird: Tab=>chkPlain Shift+Tab=>optSecond Return=cmdGo!>cmdGo Enter=cmdGo!>cmdGo Space=optThird! Left=>optSecond Right=>optFirst Up=>optSecond Down=>optFirst
chkPlain: Tab=>cmdGo Shift+Tab=>optThird Return=cmdGo!>cmdGo Enter=cmdGo!>cmdGo Space=chkPlain!
cmdGo: Tab=>cmdBack Shift+Tab=>chkPlain Return=cmdGo! Enter=cmdGo! Space=cmdGo!
txtOne: Escape=cmdBack!>cmdBack F1=help! F3=mnuNext! Ctrl+F=mnuFind! Ctrl+f=mnuFind! Alt+G=cmdGo!>cmdGo
)";

class KeyWalk : public testing::Test {
protected:
    /// All that keys come to.
    std::string told(const std::string& from, const std::vector<const char*>& keys) {
        std::string told = from + ":";
        for (const char* const key : keys) {
            if (const std::string end = comesTo(from, key); !end.empty())
                told += std::string(" ") + key + "=" + end;
        }
        return told + "\n";
    }
    /// What a key comes to with the focus there, and one more control disabled, as in ">cmdGo" or "cmdGo!";
    /// empty where it means nothing.
    std::string comesTo(const std::string& from, const char* key, const std::string& disabled = "") {
        SettableClock clock(makeDate(2026, 11, 14));
        TestDisplay display;
        Program program(display, clock, "nowhere");
        program.screens.add("frmBench", [&program] { return std::make_unique<Bench>(program); });
        program.screens.load("frmBench");
        auto* const screen = static_cast<Bench*>(program.screens.find("frmBench"));
        if (!disabled.empty())
            screen->find(disabled)->setEnabled(false);
        screen->find(from)->focus();
        const bool isUsed = person::press(*screen, person::readKey(key)).used;
        const std::string now = screen->focused()->name();
        EXPECT_TRUE(isUsed || now == from) << from << ", " << key;
        return screen->pressed + (now == from ? "" : ">" + now);
    }
};

}  // namespace

TEST_F(KeyWalk, LeadsWhereTheScreenSays) {
    std::string walk = "\n";
    for (const char* const from :
         {"txtOne", "txtLines", "optStrike", "optSplit", "chkPin1", "chkPin2", "chkPin4", "cmdRack",
          "optFirst", "optSecond", "optThird", "chkPlain", "cmdGo"})
        walk += told(from, kMoves);
    EXPECT_EQ(walk + told("txtOne", kCommands), kWalk);
}

TEST_F(KeyWalk, LeadsAcrossARowWithoutAPinToTick) {
    EXPECT_EQ(comesTo("chkPin4", "Down", "chkPin2"), ">chkPin1");
    EXPECT_EQ(comesTo("chkPin1", "Up", "chkPin2"), ">chkPin4");
}

}  // namespace tallybrook::test
