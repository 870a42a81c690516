#include "controls/Keyboard.h"
#include "controls/Person.h"
#include "player/Typing.h"
#include "shell/ProgramScreen.h"
#include "support/TestDisplay.h"

#include <initializer_list>
#include <memory>
#include <string>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

/// Boxes to type into.
class Sample : public ProgramScreen {
public:
    explicit Sample(Program& owner) : ProgramScreen(owner, "frmSample", "Sample") {}

    TextBox txtOne{*this, "txtOne", {.maxLength = 5}};
    TextBox txtTwo{*this, "txtTwo"};
    TextBox txtLines{*this, "txtLines", {.multiline = true, .tabStop = false}};

    Layout layout() override { return layout::space(); }
    void onLoad() override { screens().show(*this); }
    void onClose() override {}
};

class Typing : public testing::Test {
protected:
    Typing() {
        program.screens.add("frmSample", [this] { return std::make_unique<Sample>(program); });
        program.screens.load("frmSample");
        screen = static_cast<Sample*>(program.screens.find("frmSample"));
        screen->txtOne.focus();
    }

    TestDisplay display;
    SettableClock clock{makeDate(2026, 11, 14)};
    Program program{display, clock, "nowhere"};
    Sample* screen = nullptr;
};

}  // namespace

TEST_F(Typing, SelectsTheWholeTextOnArrival) {
    EXPECT_TRUE(screen->txtOne.isAllSelected());
    person::typeKey(screen->txtOne, person::readKey("1"));
    person::typeKey(screen->txtOne, person::readKey("2"));
    EXPECT_EQ(screen->txtOne.text(), "12");
    person::tab(*screen);
    person::tab(*screen, true);
    person::typeKey(screen->txtOne, person::readKey("7"));
    EXPECT_EQ(screen->txtOne.text(), "7");
    person::typeKey(screen->txtOne, person::readKey("Backspace"));
    EXPECT_EQ(screen->txtOne.text(), "");
    EXPECT_FALSE(person::typeKey(screen->txtOne, person::readKey("F5")));
}

TEST_F(Typing, TypesWhereTheCaretIs) {
    const auto press = [&](std::initializer_list<const char*> keys) {
        for (const char* const key : keys)
            EXPECT_TRUE(person::typeKey(screen->txtOne, person::readKey(key))) << key;
        return screen->txtOne.text();
    };
    EXPECT_EQ(press({"a", "c", "Left", "b"}), "abc");
    EXPECT_EQ(press({"Home", "x", "End", "z"}), "xabcz");
    EXPECT_EQ(press({"Left", "Backspace", "Delete", "Delete"}), "xab");
    screen->txtOne.selectAll();
    EXPECT_EQ(press({"Left", "1"}), "1xab");
    screen->txtOne.selectAll();
    EXPECT_EQ(press({"Right", "2"}), "1xab2");
    screen->txtOne.setText("\xC3\xA9\xC3\xA8");
    EXPECT_EQ(press({"Left", "u", "Right", "Right", "Backspace"}), "\xC3\xA9u");
    EXPECT_EQ(press({"Home", "Left", "Backspace"}), "\xC3\xA9u");
}

TEST_F(Typing, TakesEveryLetterAndNoNameOfAKey) {
    EXPECT_TRUE(person::typeKey(screen->txtOne, person::readKey("\xC3\xA4")));
    for (const char* const none : {"F5", "Alt+x", "Ctrl+x"})
        EXPECT_FALSE(person::typeKey(screen->txtOne, person::readKey(none))) << none;
    EXPECT_EQ(screen->txtOne.text(), "\xC3\xA4");
}

TEST_F(Typing, GoesToTheEndsOfALine) {
    const auto press = [&](std::initializer_list<const char*> keys) {
        for (const char* const key : keys)
            EXPECT_TRUE(person::typeKey(screen->txtLines, person::readKey(key))) << key;
        return screen->txtLines.text();
    };
    person::arrive(screen->txtLines);
    EXPECT_EQ(press({"a", "b", "Return", "c", "Home", "x", "End", "y"}), "ab\nxcy");
    EXPECT_EQ(press({"Left", "Left", "Left", "Left", "End", "z", "Home", "w"}), "wabz\nxcy");
    screen->txtLines.selectAll();
    EXPECT_EQ(press({"Home", "1"}), "wabz\n1xcy");
    screen->txtLines.selectAll();
    EXPECT_EQ(press({"End", "2", "Home", "Home", "3"}), "wabz\n31xcy2");
    EXPECT_EQ(press({"Enter", "4"}), "wabz\n3\n41xcy2");
}

TEST_F(Typing, StaysAtTheVeryBeginningByHome) {
    person::arrive(screen->txtLines);
    screen->txtLines.setText("ab\ncd");
    screen->txtLines.selectAll();
    for (const char* const key : {"Left", "Home", "x"})
        EXPECT_TRUE(person::typeKey(screen->txtLines, person::readKey(key))) << key;
    EXPECT_EQ(screen->txtLines.text(), "xab\ncd");
}

TEST_F(Typing, CutsNothingOfALongTextThatIsShortened) {
    const auto press = [this](const char* key) {
        person::typeKey(screen->txtOne, person::readKey(key));
        return screen->txtOne.text();
    };
    screen->txtOne.setText("longer than five");
    press("End");
    EXPECT_EQ(press("Backspace"), "longer than fiv");
    EXPECT_EQ(press("x"), "longer than fiv");
    press("Home");
    EXPECT_EQ(press("Delete"), "onger than fiv");
    screen->txtOne.enter("onger than fiv");
    EXPECT_EQ(screen->txtOne.text(), "onger than fiv");
    person::type(screen->txtOne, "onger than");  // over all of it
    EXPECT_EQ(screen->txtOne.text(), "onger");
}

}  // namespace tallybrook::test
