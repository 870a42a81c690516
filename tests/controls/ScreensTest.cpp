#include "controls/Screen.h"
#include "support/TestDisplay.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

/// A screen with nothing on it.
class Empty : public Screen {
public:
    Empty(Screens& screens, std::string name) : Screen(screens, std::move(name), "Empty") {}

    Layout layout() override { return layout::space(); }
    void onLoad() override { screens().show(*this); }
    void onClose() override {}
};

/// A screen that tells the display when it lets go of what it holds, and when it is gone.
class Telling : public Empty {
public:
    using Empty::Empty;

    void onUnload() override { screens().display().pointer(Pointer::Busy); }
    void onUnloaded() override { screens().display().pointer(Pointer::Default); }
};

using Log = std::vector<std::string>;

class ScreensTest : public testing::Test {
protected:
    ScreensTest() {
        for (const char* const name : {"One", "Two", "Three"})
            screens.add(name, [this, name] { return std::make_unique<Empty>(screens, name); });
    }
    Screen& screen(const std::string& name) {
        screens.load(name);
        return *screens.find(name);
    }
    /// What the display has been told since the last look, and which screen is in front.
    Log told() {
        Log events = display.events();
        display.forgetEvents();
        events.push_back("front " + (screens.front() == nullptr ? "none" : screens.front()->name()));
        return events;
    }

    TestDisplay display;
    Screens screens{display};
};

TEST_F(ScreensTest, LetGoOfWhatTheyHoldBeforeTheyAreGone) {
    screens.add("Telling", [this] { return std::make_unique<Telling>(screens, "Telling"); });
    Screen& telling = screen("Telling");
    told();
    screens.unload(telling);
    EXPECT_EQ(told(), (Log{"busy", "unload Telling", "default", "front none"}));
}

TEST_F(ScreensTest, AreLoadedAndUnloadedOnce) {
    Screen& one = screen("One");
    screens.load("One");
    EXPECT_EQ(told(), (Log{"load One", "show One", "front One"}));
    screens.unload(one);
    screens.unload(one);
    screens.show(one);
    screens.hide(one);
    EXPECT_EQ(told(), (Log{"unload One", "front none"}));
    EXPECT_EQ(screens.find("One"), nullptr);
    screens.showLast();
    EXPECT_EQ(told(), Log{"front none"});
    screens.dropUnloaded();
}

TEST_F(ScreensTest, ComeToTheFrontInTheOrderOfShowing) {
    Screen& one = screen("One");
    Screen& two = screen("Two");
    told();
    screens.show(two);
    EXPECT_EQ(told(), Log{"front Two"});
    screens.show(one);
    EXPECT_EQ(told(), (Log{"raise One", "front One"}));
    screens.hide(one);
    EXPECT_EQ(told(), (Log{"hide One", "front Two"}));
    screens.show(one);
    EXPECT_EQ(told(), (Log{"show One", "front One"}));
    screens.unload(one);
    EXPECT_EQ(told(), (Log{"unload One", "front Two"}));
}

TEST_F(ScreensTest, GoBackInTheOrderOfLoading) {
    Screen& one = screen("One");
    Screen& two = screen("Two");
    Screen& three = screen("Three");
    EXPECT_EQ(screens.loaded(), (std::vector<Screen*>{&one, &two, &three}));
    screens.hide(two);
    screens.show(one);
    told();
    screens.goBackFrom(three);
    EXPECT_EQ(told(), (Log{"unload Three", "show Two", "front Two"}));
    screens.startAfresh("Three");
    EXPECT_EQ(told(), (Log{"unload Two", "unload One", "load Three", "show Three", "front Three"}));
    screens.dropAll();
    EXPECT_EQ(told(), Log{"front none"});
    EXPECT_TRUE(screens.loaded().empty());
}

}  // namespace

}  // namespace tallybrook::test
