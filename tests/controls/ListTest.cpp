#include "controls/Keyboard.h"
#include "controls/Person.h"
#include "runtime/MountedVolumes.h"
#include "shell/ProgramScreen.h"
#include "support/FailingAllocation.h"
#include "support/TemporaryFolder.h"
#include "support/TestDisplay.h"

#include <filesystem>
#include <functional>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

using Log = std::vector<std::string>;

/// Lists of every kind beside a box, which write down what happens to them.
class ListScreen : public ProgramScreen {
public:
    explicit ListScreen(Program& owner) : ProgramScreen(owner, "frmSample", "ListScreen") {
        cboKind.fill({"Center Name", "Comment", "Date Bowled"});
        lstNames.fill({"Ann", "Bob", "\u00c9mile", "\u00e9lan", "ann"});
        for (Control* control : controls()) {
            control->onGotFocus = [this, control] { happened.push_back("got " + control->name()); };
            control->onLostFocus = [this, control] {
                happened.push_back("lost " + control->name());
                if (leaving)
                    leaving();
            };
            control->onClick = [this, control] { happened.push_back("click " + control->name()); };
        }
        drvDrive.onChange = [this] { happened.emplace_back("change drvDrive"); };
        dirFolder.onChange = [this] { happened.emplace_back("change dirFolder"); };
    }

    TextBox txtOne{*this, "txtOne"};
    ComboBox cboKind{*this, "cboKind", {.tip = "The kind", .width = 12}};
    ComboBox cboOff{*this, "cboOff", {.enabled = false}};
    ListBox lstNames{*this, "lstNames", {.lines = 3}};
    DriveList drvDrive{*this, "drvDrive", mountedVolumes()};
    FolderList dirFolder{*this, "dirFolder"};
    Button cmdGo{*this, "cmdGo", "&Go", {.isDefault = true}};

    Layout layout() override { return layout::space(); }
    void onLoad() override { screens().show(*this); }
    void onClose() override {}

    Log happened;
    std::function<void()> leaving;
};

class Lists : public testing::Test {
protected:
    Lists() {
        for (const char* inside : {"b/inner/core", "a", "c", ".hidden/deep"})
            fs::create_directories(folder.path() / inside);
        program.screens.add("frmSample", [this] { return std::make_unique<ListScreen>(program); });
        program.screens.load("frmSample");
        screen = static_cast<ListScreen*>(program.screens.find("frmSample"));
        screen->txtOne.focus();
        happened();
    }

    Log happened() { return std::exchange(screen->happened, {}); }
    bool press(const std::string& key) { return person::press(*screen, person::readKey(key)).used; }
    [[nodiscard]] std::string at(const std::string& inside) const {
        return (folder.path() / inside).string();
    }
    /// The names in the tree from the folder of the test on, each further in by a blank, "+" where it is
    /// open.
    [[nodiscard]] Log tree() const {
        const std::vector<FolderRow>& rows = screen->dirFolder.rows();
        const auto first = static_cast<std::size_t>(screen->dirFolder.rowOf(folder.path().string()).value());
        Log names;
        for (std::size_t row = first;
             row < rows.size() && (row == first || rows[row].depth > rows[first].depth); ++row)
            names.push_back(std::string(static_cast<std::size_t>(rows[row].depth - rows[first].depth), ' ') +
                            (row == first ? "top" : rows[row].name()) + (rows[row].isOpen ? "+" : ""));
        return names;
    }
    [[nodiscard]] std::string cursor() const {
        return screen->dirFolder.rows().at(static_cast<std::size_t>(screen->dirFolder.cursor())).path;
    }

    TemporaryFolder folder;
    TestDisplay display;
    SettableClock clock{makeDate(2026, 11, 14)};
    Program program{display, clock, "nowhere"};
    ListScreen* screen = nullptr;
};

// --- Items -------------------------------------------------------------------------------------------------

TEST_F(Lists, HoldTheirItemsWithNonePicked) {
    ComboBox& list = screen->cboKind;
    EXPECT_TRUE(list.isList() && list.hasRows() && list.isFocusable());
    EXPECT_EQ(list.items(), (Log{"Center Name", "Comment", "Date Bowled"}));
    EXPECT_EQ(list.pickedIndex(), std::nullopt);
    EXPECT_EQ(list.picked(), "");
    EXPECT_EQ(list.tip(), "The kind");
    EXPECT_EQ(list.options().width, 12);
    EXPECT_FALSE(screen->cboOff.isEnabled());
}

TEST_F(Lists, ShowWhatAPersonHasPicked) {
    EXPECT_EQ(person::pick(screen->cboKind, 1), Arrival::Arrived);
    EXPECT_EQ(screen->cboKind.pickedIndex(), 1);
    EXPECT_EQ(screen->cboKind.picked(), "Comment");
    EXPECT_EQ(happened(), (Log{"lost txtOne", "got cboKind", "click cboKind"}));
}

TEST_F(Lists, RunTheClickOfAnItemThatIsPickedAlready) {
    person::pick(screen->lstNames, 0);
    happened();
    person::pick(screen->lstNames, 0);
    EXPECT_EQ(happened(), Log{"click lstNames"});
}

TEST_F(Lists, HaveTheItemPickedBeforeTheClickRuns) {
    std::string seen;
    screen->cboKind.onClick = [&] { seen = screen->cboKind.picked(); };
    person::pick(screen->cboKind, 2);
    EXPECT_EQ(seen, "Date Bowled");
}

TEST_F(Lists, KeepWhatIsPickedWhateverTheClickDoes) {
    screen->cboKind.onClick = [&] {
        screen->cboOff.setEnabled(true);
        screen->cboOff.focus();
    };
    EXPECT_EQ(person::pick(screen->cboKind, 2), Arrival::Arrived);
    EXPECT_EQ(screen->cboKind.picked(), "Date Bowled");
    EXPECT_TRUE(screen->cboOff.hasFocus());
    screen->cboKind.add("Date Bowled");
    EXPECT_EQ(screen->cboKind.pickedIndex(), 2);
    EXPECT_EQ(screen->cboKind.items().size(), 4U);
}

TEST_F(Lists, HaveNothingPickedOnceTheyAreFilledAnew) {
    person::pick(screen->cboKind, 0);
    screen->cboKind.fill({"one"});
    EXPECT_EQ(screen->cboKind.pickedIndex(), std::nullopt);
    EXPECT_EQ(screen->cboKind.items(), Log{"one"});
    person::pick(screen->cboKind, 0);
    screen->cboKind.fill({"two"});
    EXPECT_EQ(screen->cboKind.pickedIndex(), std::nullopt);
    person::pick(screen->cboKind, 0);
    screen->cboKind.clear();
    EXPECT_EQ(screen->cboKind.picked(), "");
    EXPECT_TRUE(screen->cboKind.items().empty());
}

TEST_F(Lists, FailBeyondTheirItems) {
    for (const int index : {-1, 3, 100}) {
        try {
            person::pick(screen->cboKind, index);
            ADD_FAILURE() << index;
        } catch (const RunTimeError& failure) {
            EXPECT_EQ(failure.number(), error::kSubscriptOutOfRange);
        }
        EXPECT_EQ(screen->cboKind.pickedIndex(), std::nullopt);
    }
}

// --- Focus -------------------------------------------------------------------------------------------------

TEST_F(Lists, AreNotPickedFromWhereTheFocusDoesNotArrive) {
    screen->leaving = [this] { screen->txtOne.focus(); };
    EXPECT_EQ(person::pick(screen->cboKind, 0), Arrival::Kept);
    EXPECT_EQ(person::pickFolder(screen->dirFolder, at("a")), Arrival::Kept);
    EXPECT_EQ(person::toggleFolder(screen->dirFolder, 0), Arrival::Kept);
    screen->leaving = [this] { screen->cmdGo.focus(); };
    EXPECT_EQ(person::pick(screen->cboKind, 0), Arrival::Elsewhere);
    screen->leaving = nullptr;
    EXPECT_EQ(person::pick(screen->cboOff, 0), Arrival::Refused);
    EXPECT_EQ(screen->cboKind.pickedIndex(), std::nullopt);
    EXPECT_EQ(screen->dirFolder.path(), "/");
}

TEST_F(Lists, AreNotPickedFromOnceALeavingHasPutThemOff) {
    screen->leaving = [this] { screen->cboKind.setEnabled(false); };
    EXPECT_EQ(person::pick(screen->cboKind, 0), Arrival::Refused);
    screen->leaving = [this] { screen->lstNames.setVisible(false); };
    EXPECT_EQ(person::pick(screen->lstNames, 0), Arrival::Refused);
    EXPECT_EQ(screen->cboKind.pickedIndex(), std::nullopt);
    EXPECT_EQ(screen->lstNames.pickedIndex(), std::nullopt);
}

TEST_F(Lists, AreNotPickedFromOnceTheirOwnArrivalHasPutThemOff) {
    screen->lstNames.onGotFocus = [this] { screen->lstNames.setEnabled(false); };
    EXPECT_EQ(person::pick(screen->lstNames, 0), Arrival::Arrived);
    EXPECT_EQ(screen->lstNames.pickedIndex(), std::nullopt);
}

TEST_F(Lists, AreNotPickedFromOnceTheScreenIsGone) {
    screen->leaving = [this] { program.screens.hide(*screen); };
    EXPECT_EQ(person::pick(screen->cboKind, 0), Arrival::Arrived);
    EXPECT_EQ(screen->cboKind.pickedIndex(), std::nullopt);
    EXPECT_FALSE(person::isAtHand(screen->cboKind, Arrival::Arrived));
}

// --- Keys --------------------------------------------------------------------------------------------------

struct KeyStep {
    std::string key;
    int picked;
};

TEST_F(Lists, FollowTheKeys) {
    screen->lstNames.focus();
    happened();
    for (const KeyStep& step : std::vector<KeyStep>{{"Down", 0},
                                                    {"Down", 1},
                                                    {"End", 4},
                                                    {"Up", 3},
                                                    {"Home", 0},
                                                    {"PageDown", 4},
                                                    {"PageUp", 0},
                                                    {"b", 1},
                                                    {"\u00e9", 2},
                                                    {"\u00c9", 3},
                                                    {"a", 4},
                                                    {"A", 0},
                                                    {"Shift+A", 4}}) {
        EXPECT_TRUE(press(step.key)) << step.key;
        EXPECT_EQ(screen->lstNames.pickedIndex(), step.picked) << step.key;
        EXPECT_EQ(happened(), Log{"click lstNames"}) << step.key;
    }
}

TEST_F(Lists, PickNothingWhereAKeyLeadsNowhere) {
    screen->cboKind.focus();
    person::pick(screen->cboKind, 2);
    happened();
    for (const char* key : {"Down", "End", "PageDown", "x", "Left", "Right", "Shift+Up", "Ctrl+Up", "Ctrl+c",
                            "Alt+Down", "Space", "F4", "F2"})
        EXPECT_FALSE(press(key)) << key;
    EXPECT_EQ(happened(), Log{});
    EXPECT_EQ(screen->cboKind.pickedIndex(), 2);
    screen->cboKind.clear();
    EXPECT_FALSE(press("Down"));
    EXPECT_FALSE(press("c"));
}

TEST_F(Lists, BeginAtTheFirstItemWithUpToo) {
    screen->cboKind.focus();
    EXPECT_TRUE(press("Up"));
    EXPECT_EQ(screen->cboKind.pickedIndex(), 0);
}

TEST_F(Lists, LeaveOtherKeysToTheScreen) {
    screen->cboKind.focus();
    happened();
    EXPECT_TRUE(press("Return"));
    EXPECT_EQ(happened(), (Log{"lost cboKind", "got cmdGo", "click cmdGo"}));
    screen->lstNames.focus();
    EXPECT_TRUE(press("Tab"));
    EXPECT_TRUE(screen->drvDrive.hasFocus());
}

TEST_F(Lists, TakeNoKeysOnceTheirClickHasPutThemOff) {
    screen->cboKind.onClick = [this] { screen->cboKind.setEnabled(false); };
    screen->cboKind.focus();
    EXPECT_TRUE(press("Down"));
    EXPECT_TRUE(screen->lstNames.hasFocus());
    EXPECT_TRUE(press("Down"));
    EXPECT_EQ(screen->cboKind.pickedIndex(), 0);
    EXPECT_EQ(screen->lstNames.pickedIndex(), 0);
}

TEST(KeyTexts, NameTheKeyThatWritesACharacter) {
    EXPECT_EQ(person::readKey(" ").name, "Space");
    EXPECT_EQ(person::readKey("\n").name, "Return");
    EXPECT_EQ(person::readKey("\r").name, "Return");
    EXPECT_EQ(person::readKey("Shift+\t").name, "Tab");
    EXPECT_EQ(person::readKey("a").name, "a");
}

// --- Drives ------------------------------------------------------------------------------------------------

TEST_F(Lists, DrivesAreTheMountedVolumes) {
    EXPECT_EQ(screen->drvDrive.items(), mountedVolumes());
    EXPECT_EQ(screen->drvDrive.items().front(), "/");
    for (const std::string& volume : screen->drvDrive.items())
        EXPECT_TRUE(fs::is_directory(volume)) << volume;
}

TEST_F(Lists, DriveOfAPathIsTheInnermostVolumeItLiesOn) {
    screen->drvDrive.fill({"/", "/mnt/disk", "/mnt/disk/inner"});
    const auto volumeOf = [this](const std::string& path) {
        screen->drvDrive.showVolumeOf(path);
        return screen->drvDrive.picked();
    };
    EXPECT_EQ(volumeOf("/mnt/disk"), "/mnt/disk");
    EXPECT_EQ(volumeOf("/mnt/disk/a"), "/mnt/disk");
    EXPECT_EQ(volumeOf("/mnt/disks"), "/");
    EXPECT_EQ(volumeOf("/mnt/disk/inner/a b"), "/mnt/disk/inner");
    EXPECT_EQ(volumeOf("elsewhere"), "");
    EXPECT_EQ(happened(), Log{});
}

TEST_F(Lists, PickedDriveRunsItsChange) {
    person::pick(screen->drvDrive, 0);
    EXPECT_EQ(screen->drvDrive.picked(), "/");
    EXPECT_EQ(happened(), (Log{"lost txtOne", "got drvDrive", "change drvDrive"}));
}

// --- Folders -----------------------------------------------------------------------------------------------

TEST_F(Lists, FoldersBeginAtTheRoot) {
    EXPECT_EQ(screen->dirFolder.path(), "/");
    EXPECT_EQ(screen->dirFolder.picked(), "/");
    EXPECT_EQ(screen->dirFolder.rows().front(), (FolderRow{.path = "/", .depth = 0, .isOpen = true}));
    EXPECT_EQ(screen->dirFolder.rows().front().name(), "/");
    EXPECT_EQ(screen->dirFolder.cursor(), 0);
}

TEST_F(Lists, FoldersAreItemsByTheirFullPaths) {
    screen->dirFolder.setPath(folder.path().string() + "/");
    EXPECT_EQ(screen->dirFolder.path(), folder.path().string());
    EXPECT_EQ(screen->dirFolder.picked(), folder.path().string());
    screen->dirFolder.setPath(at("b/../a/.."));
    EXPECT_EQ(screen->dirFolder.path(), folder.path().string());
    Log items = screen->dirFolder.items();
    EXPECT_EQ(items.front(), "/");
    items.erase(items.begin(), items.end() - 3);
    EXPECT_EQ(items, (Log{at("a"), at("b"), at("c")}));
    EXPECT_EQ(happened(), Log{});
}

TEST_F(Lists, FolderWhosePathIsNoLineOfTextIsNone) {
    for (const char* const name : {"two\nlines", "two\rlines", "a\xff"}) {
        fs::create_directories(folder.path() / name / "inner");
        EXPECT_FALSE(FolderList::isFolder(at(name)));
        EXPECT_FALSE(FolderList::isFolder(at(name) + "/inner"));
    }
    EXPECT_EQ(FolderList::foldersIn(folder.path().string()), (Log{at("a"), at("b"), at("c")}));
}

TEST_F(Lists, FolderThatIsNotThereFails) {
    try {
        screen->dirFolder.setPath(at("gone"));
        ADD_FAILURE();
    } catch (const RunTimeError& failure) {
        EXPECT_EQ(failure.number(), error::kPathNotFound);
    }
    EXPECT_FALSE(screen->dirFolder.pickFolder(at("gone")));
    EXPECT_FALSE(screen->dirFolder.pickFolder("a"));
    EXPECT_FALSE(screen->dirFolder.reveal(at("gone")));
    EXPECT_EQ(screen->dirFolder.path(), "/");
    EXPECT_EQ(happened(), Log{});
}

TEST_F(Lists, PickedFolderIsOpenAndRunsItsChange) {
    EXPECT_EQ(person::pickFolder(screen->dirFolder, at("b")), Arrival::Arrived);
    EXPECT_EQ(happened(), (Log{"lost txtOne", "got dirFolder", "change dirFolder"}));
    EXPECT_EQ(tree(), (Log{"top+", " a", " b+", "  inner", " c"}));
    EXPECT_EQ(cursor(), at("b"));
    const Log& items = screen->dirFolder.items();
    EXPECT_EQ(items.back(), at("b/inner"));
    person::pick(screen->dirFolder, static_cast<int>(items.size()) - 1);
    EXPECT_EQ(screen->dirFolder.path(), at("b/inner"));
    EXPECT_EQ(happened(), Log{"change dirFolder"});
    person::pickFolder(screen->dirFolder, at("b/inner"));
    EXPECT_EQ(happened(), Log{"change dirFolder"});
}

TEST_F(Lists, FolderWithNothingInItIsEmptyOnceItWasOpened) {
    screen->dirFolder.setPath(folder.path().string());
    const int row = screen->dirFolder.rowOf(at("a")).value();
    const auto isEmpty = [&] { return screen->dirFolder.rows()[static_cast<std::size_t>(row)].isEmpty; };
    EXPECT_FALSE(isEmpty());
    screen->dirFolder.open(row);
    EXPECT_TRUE(isEmpty());
    fs::create_directory(at("a") + "/new");
    screen->dirFolder.open(row);
    EXPECT_FALSE(isEmpty());
    EXPECT_EQ(tree(), (Log{"top+", " a+", "  new", " b", " c"}));
}

TEST_F(Lists, LookingForAFolderPicksNothing) {
    screen->dirFolder.setPath(folder.path().string());
    EXPECT_EQ(person::toggleFolder(screen->dirFolder, *screen->dirFolder.rowOf(at("b"))), Arrival::Arrived);
    EXPECT_EQ(tree(), (Log{"top+", " a", " b+", "  inner", " c"}));
    EXPECT_EQ(cursor(), folder.path().string());
    person::toggleFolder(screen->dirFolder, *screen->dirFolder.rowOf(at("b")));
    EXPECT_EQ(tree(), (Log{"top+", " a", " b", " c"}));
    EXPECT_TRUE(screen->dirFolder.reveal(at("b/inner/core")));
    EXPECT_EQ(cursor(), at("b/inner/core"));
    EXPECT_EQ(screen->dirFolder.path(), folder.path().string());
    EXPECT_EQ(happened(), (Log{"lost txtOne", "got dirFolder"}));
}

TEST_F(Lists, WhatElseIsOpenStaysOpen) {
    screen->dirFolder.setPath(folder.path().string());
    screen->dirFolder.open(*screen->dirFolder.rowOf(at("b")));
    screen->dirFolder.pickFolder(at("c"));
    EXPECT_EQ(tree(), (Log{"top+", " a", " b+", "  inner", " c"}));
}

TEST_F(Lists, FolderAboveTheOnePickedStaysOpen) {
    screen->dirFolder.setPath(at("b/inner"));
    const Log before = tree();
    EXPECT_EQ(before, (Log{"top+", " a", " b+", "  inner+", "   core", " c"}));
    screen->dirFolder.close(*screen->dirFolder.rowOf(at("b")));
    screen->dirFolder.close(0);
    EXPECT_EQ(tree(), before);
    screen->dirFolder.close(*screen->dirFolder.rowOf(at("b/inner")));
    EXPECT_EQ(tree(), (Log{"top+", " a", " b+", "  inner", " c"}));
}

TEST_F(Lists, CursorGoesWithItsFolder) {
    screen->dirFolder.setPath(folder.path().string());
    FolderList& list = screen->dirFolder;
    list.moveCursor(*list.rowOf(at("c")));
    list.open(*list.rowOf(at("b")));
    EXPECT_EQ(cursor(), at("c"));
    list.moveCursor(*list.rowOf(at("b/inner")));
    list.open(list.cursor());
    list.moveCursor(*list.rowOf(at("b/inner/core")));
    list.close(*list.rowOf(at("b")));
    EXPECT_EQ(cursor(), at("b"));
    list.moveCursor(*list.rowOf(at("c")));
    list.close(*list.rowOf(at("a")));
    EXPECT_EQ(cursor(), at("c"));
    EXPECT_TRUE(list.reveal(at(".hidden/deep")));
    list.moveCursor(*list.rowOf(at("c")));
    list.close(*list.rowOf(at(".hidden")));
    EXPECT_EQ(cursor(), at("c"));
}

TEST_F(Lists, HiddenFolderShowsOnlyOnTheWay) {
    EXPECT_EQ(FolderList::foldersIn(folder.path().string()), (Log{at("a"), at("b"), at("c")}));
    EXPECT_TRUE(screen->dirFolder.pickFolder(at(".hidden")));
    EXPECT_EQ(tree(), (Log{"top+", " .hidden+", "  deep", " a", " b", " c"}));
    screen->dirFolder.pickFolder(folder.path().string());
    EXPECT_EQ(tree(), (Log{"top+", " a", " b", " c"}));
}

TEST_F(Lists, HiddenFolderOpensOneThatSeemedEmpty) {
    fs::create_directory(at("a/.only"));
    screen->dirFolder.setPath(at("a"));
    EXPECT_EQ(tree(), (Log{"top+", " a", " b", " c"}));
    screen->dirFolder.setPath(at("a/.only"));
    EXPECT_EQ(tree(), (Log{"top+", " a+", "  .only", " b", " c"}));
    EXPECT_FALSE(
        screen->dirFolder.rows()[static_cast<std::size_t>(*screen->dirFolder.rowOf(at("a")))].isEmpty);
}

TEST_F(Lists, FolderIsFoundBehindAnOpenOneThatItsNameBeginsWith) {
    fs::create_directories(at("b 2/deep"));
    screen->dirFolder.setPath(folder.path().string());
    screen->dirFolder.open(*screen->dirFolder.rowOf(at("b")));
    screen->dirFolder.setPath(at("b 2"));
    EXPECT_EQ(tree(), (Log{"top+", " a", " b+", "  inner", " b 2+", "  deep", " c"}));
}

TEST_F(Lists, RowsBeyondTheTreeFail) {
    FolderList& list = screen->dirFolder;
    const int end = static_cast<int>(list.rows().size());
    for (const int row : {-1, end}) {
        EXPECT_THROW(list.moveCursor(row), RunTimeError);
        EXPECT_THROW(list.open(row), RunTimeError);
        EXPECT_THROW(list.close(row), RunTimeError);
        EXPECT_THROW(person::toggleFolder(list, row), RunTimeError);
    }
    EXPECT_EQ(list.rowOf("/no such folder"), std::nullopt);
}

TEST_F(Lists, FoldersAreListedThoughMemoryIsShort) {
    for (const char* const name : {"a", "b", "c"})
        fs::create_directory(at(name));
    EXPECT_GE(failuresOfEachAllocation([this] { FolderList::foldersIn(folder.path().string()); }), 3);
}

TEST_F(Lists, FoldersThatCannotBeReadAreNone) {
    EXPECT_TRUE(FolderList::foldersIn(at("gone")).empty());
    EXPECT_TRUE(FolderList::isFolder(at("a")));
    EXPECT_FALSE(FolderList::isFolder("a"));
    EXPECT_FALSE(FolderList::isFolder(at("gone")));
}

struct TreeStep {
    std::string key;
    std::string cursor;  // inside the folder of the test
};

TEST_F(Lists, KeysGoThroughTheTree) {
    screen->dirFolder.setPath(folder.path().string());
    screen->dirFolder.focus();
    happened();
    for (const TreeStep& step : std::vector<TreeStep>{{"Down", "a"},
                                                      {"Right", "a"},
                                                      {"Down", "b"},
                                                      {"Right", "b"},
                                                      {"Right", "b/inner"},
                                                      {"Left", "b"},
                                                      {"Left", "b"},
                                                      {"C", "c"},
                                                      {"Up", "b"},
                                                      {"Right", "b"},
                                                      {"Down", "b/inner"},
                                                      {"Up", "b"}}) {
        EXPECT_TRUE(press(step.key)) << step.key;
        EXPECT_EQ(cursor(), at(step.cursor)) << step.key;
    }
    EXPECT_EQ(happened(), Log{});
    EXPECT_EQ(screen->dirFolder.path(), folder.path().string());
    EXPECT_TRUE(press(" "));
    EXPECT_EQ(screen->dirFolder.path(), at("b"));
    EXPECT_EQ(happened(), Log{"change dirFolder"});
    EXPECT_TRUE(press("Home"));
    EXPECT_EQ(cursor(), "/");
    EXPECT_FALSE(press("Up"));
    EXPECT_TRUE(press("Left"));  // the root stays where it is
    EXPECT_EQ(cursor(), "/");
    EXPECT_TRUE(press("PageDown"));
    EXPECT_EQ(screen->dirFolder.cursor(), 10);
    EXPECT_TRUE(press("End"));
    EXPECT_EQ(screen->dirFolder.cursor(), static_cast<int>(screen->dirFolder.rows().size()) - 1);
    EXPECT_FALSE(press("Shift+Space"));
    EXPECT_FALSE(press("Ctrl+Left"));
    EXPECT_EQ(happened(), Log{});
}

TEST_F(Lists, LeftGoesOutOfAFolderThatMustStayOpen) {
    screen->dirFolder.setPath(at("b/inner"));
    screen->dirFolder.focus();
    EXPECT_TRUE(press("Left"));  // closes the folder picked
    EXPECT_EQ(cursor(), at("b/inner"));
    EXPECT_TRUE(press("Left"));
    EXPECT_EQ(cursor(), at("b"));
    EXPECT_TRUE(press("Left"));
    EXPECT_EQ(cursor(), folder.path().string());
}

}  // namespace

}  // namespace tallybrook::test
