#include "player/Places.h"

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

TEST(Places, AreNamedWhereverATextHoldsThem) {
    const Places places("/home/ann/data", "/srv/play");
    EXPECT_EQ(places.named("/home/ann/data"), "<data>");
    EXPECT_EQ(places.named("/home/ann/data/"), "<data>/");
    EXPECT_EQ(places.named("notepad.exe /home/ann/data/Report.txt"), "notepad.exe <data>/Report.txt");
    EXPECT_EQ(places.named("copy \"/home/ann/data/a\" to /srv/play/b."), "copy \"<data>/a\" to <cwd>/b.");
    EXPECT_EQ(places.named("It lies in /home/ann/data.\r\nReally."), "It lies in <data>.\r\nReally.");
    EXPECT_EQ(places.named("It lies in /srv/play."), "It lies in <cwd>.");
    EXPECT_EQ(places.named("no path"), "no path");
    EXPECT_EQ(places.named(""), "");
}

TEST(Places, AreNamedOnlyAsTheBeginningOfAPath) {
    const Places places("/home/ann/data", "/srv/play");
    for (const std::string text : {"/home/ann/data2", "/home/ann/data.old", "/home/ann/data-1/x",
                                   "/home/ann/dat", "/mnt/home/ann/data", "x/home/ann/data",
                                   "//home/ann/data", "\\/home/ann/data", "/home/ann/data\xC3\xA9"})
        EXPECT_EQ(places.named(text), text);
}

TEST(Places, EndAtWhateverIsNoPartOfAName) {
    const Places places("/home/ann/data", "/srv/play");
    for (const char end : std::string("/\\\"',;:!?()[]{}<>|= \t\n"))
        EXPECT_EQ(places.named(std::string("/home/ann/data") + end + "x"), std::string("<data>") + end + "x");
    for (const char before : std::string("\"',;:!?()[]{}<>|= \t\n"))
        EXPECT_EQ(places.named(std::string("x") + before + "/srv/play"), std::string("x") + before + "<cwd>");
    for (const char letter : std::string("_-+*#~@$%&^`9Z"))
        EXPECT_EQ(places.named(std::string("/srv/play") + letter), std::string("/srv/play") + letter);
    EXPECT_EQ(places.meant("<data>/x"), "/home/ann/data/x");
    EXPECT_EQ(places.meant("<cwd>"), "/srv/play");
    EXPECT_EQ(places.meant("x<data>"), "x<data>");
}

TEST(Places, TheLongerPathGoesFirst) {
    const Places inside("/srv/play/data", "/srv/play");
    EXPECT_EQ(inside.named("/srv/play/data/x, /srv/play/x"), "<data>/x, <cwd>/x");
    const Places around("/srv", "/srv/play");
    EXPECT_EQ(around.named("/srv/play/x, /srv/x"), "<cwd>/x, <data>/x");
    const Places same("/srv", "/srv");
    EXPECT_EQ(same.named("/srv/x"), "<data>/x");
}

TEST(Places, TheRootIsNoPlace) {
    const Places places("/home/ann/data", "/");
    EXPECT_EQ(places.named("/ and /usr"), "/ and /usr");
    EXPECT_EQ(Places().named("/home"), "/home");
}

TEST(Places, APathIsMadePlain) {
    EXPECT_EQ(plainPath("/a/./b/../c/"), "/a/c");
    EXPECT_EQ(plainPath("x"), std::filesystem::current_path() / "x");
    EXPECT_EQ(plainPath("/"), "/");
}

}  // namespace

}  // namespace tallybrook::test
