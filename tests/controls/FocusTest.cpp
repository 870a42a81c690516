#include "controls/Keyboard.h"
#include "controls/Person.h"
#include "shell/ProgramScreen.h"
#include "support/TemporaryFolder.h"
#include "support/TestDisplay.h"

#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

/// Boxes, buttons and options that write down what happens to them.
class Sample : public ProgramScreen {
public:
    explicit Sample(Program& owner) : ProgramScreen(owner, "frmSample", "Sample") {
        for (Control* control : controls()) {
            if (control == &mnuGo)
                continue;  // runs a button
            control->onGotFocus = [this, control] { happened.push_back("got " + control->name()); };
            control->onLostFocus = [this, control] {
                happened.push_back("lost " + control->name());
                if (leaving)
                    leaving(*control);
            };
            control->onClick = [this, control] { happened.push_back("click " + control->name()); };
        }
    }

    TextBox txtOne{*this, "txtOne", {.maxLength = 5}};
    TextBox txtTwo{*this, "txtTwo"};
    Button cmdGo{*this, "cmdGo", "&Go", {.isDefault = true}};
    GroupBox fraBox{*this, "fraBox"};
    OptionGroup group;
    OptionButton optA{fraBox, "optA", group, "&A"};
    OptionButton optB{fraBox, "optB", group, "&B"};
    CheckBox chkPin{fraBox, "chkPin", "1"};
    TextBox txtShown{*this, "txtShown", {.readOnly = true, .tabStop = false}};
    TextBox txtLines{*this, "txtLines", {.multiline = true, .tabStop = false}};
    Label lblTwo{*this, "lblTwo", "&Two", txtTwo};
    Menu mnuTop{*this, "mnuTop", "&Top"};
    Menu mnuGo{mnuTop, "mnuGo", "&Go", cmdGo};
    Menu mnuHelp{mnuTop, "mnuHelp", "Help", "F1"};

    Layout layout() override { return layout::space(); }
    void onLoad() override { screens().show(*this); }
    void onClose() override { happened.emplace_back("close"); }
    using Screen::tell;

    std::vector<std::string> happened;
    std::function<void(Control&)> leaving;
};

class Focus : public testing::Test {
protected:
    Focus() {
        program.screens.add("frmSample", [this] { return std::make_unique<Sample>(program); });
        program.screens.load("frmSample");
        screen = static_cast<Sample*>(program.screens.find("frmSample"));
        screen->txtOne.focus();
        screen->happened.clear();
    }
    std::string focus() const { return screen->focused() == nullptr ? "none" : screen->focused()->name(); }

    TestDisplay display;
    SettableClock clock{makeDate(2026, 11, 14)};
    Program program{display, clock, "nowhere"};
    Sample* screen = nullptr;
};

using Log = std::vector<std::string>;

TEST_F(Focus, LeavesBeforeItArrives) {
    EXPECT_EQ(person::click(screen->cmdGo), Arrival::Arrived);
    EXPECT_EQ(screen->happened, (Log{"lost txtOne", "got cmdGo", "click cmdGo"}));
    screen->happened.clear();
    EXPECT_EQ(person::click(screen->cmdGo), Arrival::Arrived);
    EXPECT_EQ(screen->happened, Log{"click cmdGo"});
}

TEST_F(Focus, StaysWhereTheLeavingKeepsIt) {
    screen->leaving = [this](Control&) { screen->txtOne.focus(); };
    EXPECT_EQ(person::click(screen->cmdGo), Arrival::Kept);
    EXPECT_EQ(screen->happened, (Log{"lost txtOne", "got txtOne"}));
    EXPECT_EQ(person::type(screen->txtTwo, "x"), Arrival::Kept);
    EXPECT_EQ(screen->txtTwo.text(), "");
    EXPECT_EQ(person::tab(*screen), Arrival::Kept);
    EXPECT_EQ(focus(), "txtOne");
}

TEST_F(Focus, RestsWhereTheLeavingPutsIt) {
    screen->leaving = [this](Control& left) {
        if (&left == &screen->txtOne)
            screen->txtTwo.focus();
    };
    EXPECT_EQ(person::click(screen->optA), Arrival::Elsewhere);
    EXPECT_EQ(focus(), "txtTwo");
    EXPECT_TRUE(screen->optA.value());  // the click still happens
    screen->txtOne.focus();
    EXPECT_EQ(person::type(screen->txtShown, "x"), Arrival::Elsewhere);
    EXPECT_EQ(person::type(screen->txtTwo, "y"), Arrival::Arrived);
    EXPECT_EQ(screen->txtTwo.text(), "y");
}

TEST_F(Focus, IsHandedOnWithoutALeaving) {
    screen->txtOne.setEnabled(false);
    EXPECT_EQ(focus(), "txtTwo");
    EXPECT_EQ(screen->happened, Log{"got txtTwo"});
    screen->optA.focus();
    screen->happened.clear();
    screen->fraBox.setEnabled(false);
    EXPECT_EQ(focus(), "txtTwo");  // round, past the disabled ones and the one without a tab stop
    EXPECT_EQ(screen->happened, Log{"got txtTwo"});
    screen->txtTwo.setVisible(false);
    screen->cmdGo.setEnabled(false);
    EXPECT_EQ(focus(), "none");
}

TEST_F(Focus, RunsALeavingOnceWhateverItDoes) {
    int leavings = 0;
    screen->leaving = [&](Control&) {
        ++leavings;
        screen->txtTwo.focus();
        screen->txtOne.focus();
    };
    EXPECT_EQ(person::click(screen->cmdGo), Arrival::Kept);
    EXPECT_EQ(leavings, 1);
}

TEST_F(Focus, GoesNowhereByALeavingThatHasFailed) {
    screen->leaving = [this](Control&) {
        screen->txtTwo.focus();
        throw RunTimeError(error::kOverflow);
    };
    EXPECT_THROW(person::click(screen->cmdGo), RunTimeError);
    EXPECT_EQ(focus(), "txtOne");
    screen->txtOne.onLostFocus = nullptr;
    EXPECT_EQ(person::click(screen->cmdGo), Arrival::Arrived);
    EXPECT_EQ(focus(), "cmdGo");
}

TEST_F(Focus, DoesNotGoWhereItCannot) {
    screen->cmdGo.setEnabled(false);
    EXPECT_EQ(person::click(screen->cmdGo), Arrival::Refused);
    screen->cmdGo.focus();
    EXPECT_EQ(focus(), "txtOne");
    EXPECT_TRUE(screen->happened.empty());
    program.screens.hide(*screen);
    screen->txtTwo.focus();
    EXPECT_EQ(focus(), "txtOne");
    program.screens.show(*screen);
    EXPECT_EQ(focus(), "txtOne");
}

TEST_F(Focus, WalksTheTabOrderRoundAndRound) {
    Log order;
    for (int i = 0; i < 7; ++i) {
        person::tab(*screen);
        order.push_back(focus());
    }
    EXPECT_EQ(order, (Log{"txtTwo", "cmdGo", "optA", "optB", "chkPin", "txtOne", "txtTwo"}));
    person::tab(*screen, true);
    EXPECT_EQ(focus(), "txtOne");
    EXPECT_FALSE(screen->optA.value());  // arriving selects nothing
}

TEST_F(Focus, FollowsTheKeys) {
    const auto press = [this](const char* key) { return person::press(*screen, person::readKey(key)); };
    EXPECT_TRUE(press("Alt+T").used);
    EXPECT_EQ(focus(), "txtTwo");
    EXPECT_TRUE(press("Alt+b").used);
    EXPECT_TRUE(screen->optB.value());
    press("Up");
    EXPECT_EQ(focus(), "optA");
    EXPECT_FALSE(screen->optA.value());
    press("Space");
    EXPECT_TRUE(screen->optA.value());
    EXPECT_FALSE(screen->optB.value());
    screen->happened.clear();
    EXPECT_TRUE(press("Alt+G").used);
    EXPECT_EQ(screen->happened, (Log{"lost optA", "got cmdGo", "click cmdGo"}));
    screen->txtOne.focus();
    screen->happened.clear();
    EXPECT_TRUE(press("Return").used);  // the default button
    EXPECT_EQ(screen->happened.back(), "click cmdGo");
    screen->happened.clear();
    EXPECT_TRUE(press("F1").used);
    EXPECT_EQ(screen->happened, Log{"click mnuHelp"});
    EXPECT_FALSE(press("Alt+Z").used);
    EXPECT_FALSE(press("Escape").used);
    EXPECT_FALSE(press("x").used);
}

TEST_F(Focus, ExcludesTheOtherOptionsOfAGroup) {
    person::click(screen->optA);
    screen->happened.clear();
    person::click(screen->optA);
    EXPECT_TRUE(screen->happened.empty());  // on already
    screen->optA.setValue(false);
    EXPECT_FALSE(screen->optA.value() || screen->optB.value());
    screen->optB.setValue(true);
    EXPECT_EQ(screen->happened, Log{"click optB"});  // set in code, it clicks
}

TEST_F(Focus, HasTheOtherOptionsOffBeforeAClickRuns) {
    person::click(screen->optA);
    bool wasOn = true;
    screen->optB.onClick = [&] { wasOn = screen->optA.value(); };
    person::click(screen->optB);
    EXPECT_FALSE(wasOn);
}

TEST_F(Focus, TogglesACheckBox) {
    person::click(screen->chkPin);
    EXPECT_TRUE(screen->chkPin.value());
    person::click(screen->chkPin);
    EXPECT_FALSE(screen->chkPin.value());
    screen->happened.clear();
    screen->chkPin.setValue(false);
    EXPECT_TRUE(screen->happened.empty());
}

TEST_F(Focus, CutsTypedTextAlone) {
    int changes = 0;
    screen->txtOne.onChange = [&] { ++changes; };
    person::type(screen->txtOne, "\u00e41234567");
    EXPECT_EQ(screen->txtOne.text(), "\u00e41234");
    screen->txtOne.setText("longer than five");
    screen->txtOne.setText("longer than five");
    EXPECT_EQ(screen->txtOne.text(), "longer than five");
    EXPECT_EQ(changes, 2);
    screen->txtOne.enter("longer than fiv");
    EXPECT_EQ(screen->txtOne.text(), "longer than fiv");  // to take some of it out is no typing
    person::type(screen->txtShown, "x");
    EXPECT_EQ(screen->txtShown.text(), "");
}

TEST_F(Focus, LeavesTypedTextUnselected) {
    person::type(screen->txtTwo, "a");
    EXPECT_FALSE(screen->txtTwo.isAllSelected());
}

TEST_F(Focus, TypesOverAllWhereverTheCaretIs) {
    screen->txtTwo.setText("a\tb");
    screen->txtTwo.focus();
    screen->txtTwo.moveCaret(0);
    person::type(screen->txtTwo, "a\tbc");
    EXPECT_EQ(screen->txtTwo.text(), "abc");  // no key writes the tab
}

TEST_F(Focus, KeepsABoxOfOneLineOnOneLine) {
    struct Pasted {
        const char* text;
        const char* taken;
    };
    for (const Pasted& one : {Pasted{"/home/ann\n", "/home/ann"}, Pasted{"a\r\nb\nc\r\n\r\n", "a b c"},
                              Pasted{"\na", " a"}, Pasted{"\r\n", ""}}) {
        person::type(screen->txtTwo, one.text);
        EXPECT_EQ(screen->txtTwo.text(), one.taken);
    }
    person::type(screen->txtOne, "12345\n");
    EXPECT_EQ(screen->txtOne.text(), "12345");
    person::type(screen->txtLines, "a\nb\n");
    EXPECT_EQ(screen->txtLines.text(), "a\nb\n");
}

TEST_F(Focus, EndsTheLinesOfABoxOfSeveralAlike) {
    person::type(screen->txtLines, "a\r\nb\rc\t\n\nd\r\n");
    EXPECT_EQ(screen->txtLines.text(), "a\nb\nc\t\n\nd\n");
}

TEST_F(Focus, KeepsWhatCannotBeTypedWhereCodeHasPutIt) {
    screen->txtTwo.setText("a\tb\u00e9");
    screen->txtTwo.enter("a\tb\u00e8\t");
    EXPECT_EQ(screen->txtTwo.text(), "a\tb\u00e8");
    screen->txtTwo.enter("a\t");
    EXPECT_EQ(screen->txtTwo.text(), "a\t");
}

/// Letters of two bytes, of which they have one in common.
TEST_F(Focus, TakesLettersAsAWhole) {
    screen->txtTwo.setText("a\u00e9b");
    for (const char* const text : {"a\u00a9b", "a\u00aab", "\u00aab", "\u00aa", "\u00ea"}) {
        screen->txtTwo.enter(text);
        EXPECT_EQ(screen->txtTwo.text(), text);
    }
}

TEST_F(Focus, LeavesTheCaretBehindATextThatHasChanged) {
    screen->txtTwo.setText("abcdef");
    EXPECT_EQ(screen->txtTwo.caret(), 6U);
    screen->txtTwo.moveCaret(4);
    screen->txtTwo.setText("ab");
    EXPECT_EQ(screen->txtTwo.caret(), 2U);
    screen->txtTwo.moveCaret(1);
    screen->txtTwo.setText("ab");
    EXPECT_EQ(screen->txtTwo.caret(), 1U);
}

TEST_F(Focus, TakesNoNewsToTheNextControl) {
    screen->tell("Strike");
    screen->txtOne.focus();
    EXPECT_EQ(screen->news(), "Strike");
    screen->txtTwo.focus();
    EXPECT_EQ(screen->news(), "");
}

TEST_F(Focus, KeepsTheNewsThatAreToldAsItComes) {
    screen->txtTwo.onGotFocus = [this] { screen->tell("Second box"); };
    screen->txtTwo.focus();
    EXPECT_EQ(screen->news(), "Second box");
}

TEST_F(Focus, WhatIsOffOrOutOfSightIsNotActivated) {
    const auto activateAll = [this] {
        for (Control* const control : screen->controls())
            person::activate(*control);
        return std::exchange(screen->happened, {});
    };
    const Log all{"click cmdGo", "click optA", "click optB", "click chkPin", "click cmdGo", "click mnuHelp"};
    EXPECT_EQ(activateAll(), all);  // neither boxes, nor groups, nor what only leads to entries
    screen->optB.setValue(false);
    screen->happened.clear();
    screen->cmdGo.setVisible(false);
    screen->fraBox.setEnabled(false);
    screen->mnuHelp.setVisible(false);
    EXPECT_EQ(activateAll(), Log{"click cmdGo"});  // an entry runs its button wherever that is
    program.screens.hide(*screen);
    EXPECT_EQ(activateAll(), Log{});
}

TEST_F(Focus, KeyOfAnEntryThatIsOffMeansNothing) {
    screen->mnuHelp.setEnabled(false);
    EXPECT_FALSE(person::press(*screen, person::readKey("F1")).used);
    EXPECT_FALSE(person::press(*screen, person::Key{}).used) << "a key without a name runs what has none";
    EXPECT_EQ(screen->happened, Log{});
}

TEST_F(Focus, IsRefusedByTabWhereNothingTakesIt) {
    for (Control* const control : screen->controls())
        control->setTabStop(false);
    EXPECT_EQ(person::tab(*screen), Arrival::Refused);
    EXPECT_EQ(focus(), "txtOne");
}

TEST_F(Focus, TextEditedFromElsewhereIsNotTypedOver) {
    screen->txtTwo.setText("a\tb");
    EXPECT_EQ(person::edit(screen->txtTwo, "a\tbc"), Arrival::Arrived);
    EXPECT_EQ(screen->txtTwo.text(), "a\tbc");
    EXPECT_FALSE(screen->txtTwo.isAllSelected());
    screen->txtTwo.selectAll();
    EXPECT_EQ(person::edit(screen->txtTwo, "a\tx"), Arrival::Arrived);
    EXPECT_EQ(screen->txtTwo.text(), "ax");  // and where it was, all is
}

TEST(Keys, AreReadWithTheirModifiersInAnyOrder) {
    const auto told = [](const char* text) {
        const person::Key key = person::readKey(text);
        return std::string(key.alt ? "A" : "") + (key.control ? "C" : "") + (key.shift ? "S" : "") + " " +
               key.name;
    };
    for (const auto& [text, key] :
         std::vector<std::pair<const char*, const char*>>{{"", " "},
                                                          {"x", " x"},
                                                          {"Shift+x", "S x"},
                                                          {"Alt+x", "A X"},
                                                          {"Ctrl+x", "C X"},
                                                          {"Ctrl+Alt+x", "AC X"},
                                                          {"Shift+Alt+Tab", "AS Tab"},
                                                          {"Shift+Ctrl+Alt+f4", "ACS f4"},
                                                          {"Ctrl++", "C +"},
                                                          {"Alt+", " Alt+"},
                                                          {"Ctrl+ ", "C Space"}})
        EXPECT_EQ(told(text), key) << text;
}

TEST_F(Focus, ScreenIsHiddenAndShownOnce) {
    display.forgetEvents();
    for (int times = 0; times < 2; ++times)
        program.screens.hide(*screen);
    for (int times = 0; times < 2; ++times)
        program.screens.show(*screen);
    EXPECT_EQ(display.events(), (Log{"hide frmSample", "show frmSample"}));
}

TEST_F(Focus, RunsAMenuEntryWithoutMovingIt) {
    person::click(screen->mnuGo);
    EXPECT_EQ(screen->happened, (Log{"click cmdGo"}));
    EXPECT_EQ(focus(), "txtOne");
    screen->mnuTop.setEnabled(false);
    person::click(screen->mnuGo);
    EXPECT_EQ(screen->happened.size(), 1U);
}

TEST_F(Focus, ClosesWithoutALeaving) {
    person::close(*screen);
    EXPECT_EQ(screen->happened, Log{"close"});
}

TEST_F(Focus, SurvivesAFailingLeaving) {
    screen->leaving = [](Control&) { throw RunTimeError(error::kTypeMismatch); };
    EXPECT_THROW(person::click(screen->cmdGo), RunTimeError);
    screen->leaving = nullptr;
    EXPECT_EQ(person::click(screen->cmdGo), Arrival::Arrived);
}

TEST_F(Focus, KnowsNoMissingElement) {
    const ControlArray<Label> labels("lblX", 1, 2, [this](int, const std::string& name) {
        return std::make_unique<Label>(*screen, name, "");
    });
    EXPECT_EQ(labels(2).name(), "lblX(2)");
    try {
        static_cast<void>(labels(3));
        ADD_FAILURE();
    } catch (const RunTimeError& failure) {
        EXPECT_EQ(failure.number(), 340);
        EXPECT_EQ(failure.description(), "Control array element '3' doesn't exist");
    }
}

}  // namespace

}  // namespace tallybrook::test
