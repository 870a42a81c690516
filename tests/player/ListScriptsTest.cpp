// Scripts with lists and grids, on each display alone and on both.

#include "Rehearsal.h"
#include "SourceFolder.h"
#include "Stages.h"
#include "player/PlayStopped.h"

#include <algorithm>
#include <filesystem>
#include <sstream>

#include <gtest/gtest.h>
#include <rapidcheck.h>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

constexpr int kEvents = 12;

Outcome playLists(const std::string& stage, const std::string& script) {
    return rehearse(*makeStage(stage), script, {"frmTwo", "frmLists"}, kEvents);
}

// --- What each command does --------------------------------------------------------------------------------

class ListScripts : public testing::TestWithParam<std::string> {
protected:
    /// A script that is played to its end writes this after the start.
    void expectPlayed(const std::string& script, const std::string& transcript) {
        const Outcome outcome = playLists(GetParam(), "start\n" + script);
        EXPECT_EQ(outcome.transcript, kStart + transcript);
        EXPECT_EQ(outcome.errors, "");
        EXPECT_EQ(outcome.status, status::kPlayed);
    }
    void expectStopped(const std::string& script, const std::string& message) {
        const Outcome outcome = playLists(GetParam(), "start\n" + script);
        EXPECT_EQ(outcome.errors, message + "\n");
        EXPECT_EQ(outcome.status, status::kNotCarriedOut);
    }
    static inline const std::string kStart =
        "> start\n"
        "load frmTwo\n"
        "show frmTwo\n"
        "load frmLists\n"
        "show frmLists\n"
        "focus txtFirst\n";
};

INSTANTIATE_TEST_SUITE_P(On, ListScripts, testing::ValuesIn(kStages),
                         [](const auto& stage) { return stage.param; });

TEST_P(ListScripts, ShowWhatListsHave) {
    expectPlayed(
        "show cboField cboOp lstNames\npick lstNames \"a \\\"b\\\"|c\"\nshow lstNames\n",
        "> show cboField cboOp lstNames\n"
        "cboField list=[\"Center Name\"|\"Comment\"|\"Date Bowled\"|\"Comment\"] picked=\"\" enabled=yes "
        "visible=yes focus=no\n"
        "cboOp list=[] picked=\"\" enabled=no visible=yes focus=no\n"
        "lstNames list=[\"Ann\"|\"Bob\"|\"a \\\"b\\\"|c\"|\"Carl\"|\"carla\"|\"\xC3\x89mile\"] picked=\"\" "
        "enabled=yes visible=yes focus=no\n"
        "> pick lstNames \"a \\\"b\\\"|c\"\n"
        "focus lstNames\n"
        "> show lstNames\n"
        "lstNames list=[\"Ann\"|\"Bob\"|\"a \\\"b\\\"|c\"|\"Carl\"|\"carla\"|\"\xC3\x89mile\"] "
        "picked=\"a \\\"b\\\"|c\" enabled=yes visible=yes focus=yes\n");
}

TEST_P(ListScripts, ShowTheRowsOfAGrid) {
    expectPlayed("click cmdFewer\nrow dgdEvents 3\nshow dgdEvents txtFirst\n",
                 "> click cmdFewer\n"
                 "focus cmdFewer\n"
                 "> row dgdEvents 3\n"
                 "focus dgdEvents\n"
                 "> show dgdEvents txtFirst\n"
                 "dgdEvents caption=\"&Event List\" row=3 rows=4 enabled=yes visible=yes focus=yes\n"
                 "  1: \"9\"|\"Event 9\"|\"0.00\"\n"
                 "  2: \"10\"|\"Event 10\"|\"0.00\"\n"
                 "  3: \"11\"|\"Event 11\"|\"0.00\"\n"
                 "  4: \"12\"|\"Event 12\"|\"0.00\"\n"
                 "txtFirst text=\"\" enabled=yes visible=yes focus=no\n");
    expectPlayed("pick cboDo \"no grid\"\nshow dgdEvents\n",
                 "> pick cboDo \"no grid\"\n"
                 "focus cboDo\n"
                 "> show dgdEvents\n"
                 "dgdEvents caption=\"&Event List\" row=0 rows=0 enabled=yes visible=yes focus=no\n");
}

TEST_P(ListScripts, PickByTextAndByPosition) {
    expectPlayed("pick lstNames \"Carl\"\nshow lblSeen\npick lstNames #0\nshow lblSeen\npick lstNames #0\n",
                 "> pick lstNames \"Carl\"\n"
                 "focus lstNames\n"
                 "> show lblSeen\n"
                 "lblSeen caption=\"name Carl\" enabled=yes visible=yes focus=no\n"
                 "> pick lstNames #0\n"
                 "> show lblSeen\n"
                 "lblSeen caption=\"name Ann\" enabled=yes visible=yes focus=no\n"
                 "> pick lstNames #0\n");
}

TEST_P(ListScripts, PickTheFirstOfTheSameTexts) {
    expectPlayed(
        "pick cboField \"Comment\"\npress \"Tab\"\npress \"Shift+Tab\"\npress \"Shift+Tab\"\n"
        "press \"Up\"\nshow cboField\n",
        "> pick cboField \"Comment\"\n"
        "focus cboOp\n"
        "> press \"Tab\"\n"
        "focus lstNames\n"
        "> press \"Shift+Tab\"\n"
        "focus cboOp\n"
        "> press \"Shift+Tab\"\n"
        "focus cboField\n"
        "> press \"Up\"\n"
        "focus cboOp\n"
        "> show cboField\n"
        "cboField list=[\"Center Name\"|\"Comment\"|\"Date Bowled\"|\"Comment\"] "
        "picked=\"Center Name\" enabled=yes visible=yes focus=no\n");
}

TEST_P(ListScripts, PickWhatIsThereOnceTheFocusIs) {
    expectPlayed("pick cboField #0\nfocus txtFilling\npick cboOp \"later\"\nshow cboOp\n",
                 "> pick cboField #0\n"
                 "focus cboOp\n"
                 "> focus txtFilling\n"
                 "focus txtFilling\n"
                 "> pick cboOp \"later\"\n"
                 "focus txtFirst\n"
                 "> show cboOp\n"
                 "cboOp list=[\"late\"|\"later\"] picked=\"later\" enabled=yes visible=yes focus=no\n");
}

TEST_P(ListScripts, StopAtWhatIsNotThere) {
    expectStopped("pick lstNames \"Zoe\"\n", "line 2: lstNames has no item \"Zoe\"");
    expectStopped("pick frmLists.lstNames #6\n", "line 2: frmLists.lstNames has no item #6");
    expectStopped("pick cboField \"\"\n", "line 2: cboField has no item \"\"");
    expectStopped("pick dirFolder \"/no such folder\"\n",
                  "line 2: dirFolder has no folder \"/no such folder\"");
    expectStopped("pick dirFolder \"tmp\"\n", "line 2: dirFolder has no folder \"tmp\"");
    expectStopped("pick dirFolder #999999999\n", "line 2: dirFolder has no item #999999999");
    expectStopped("row dgdEvents 13\n", "line 2: dgdEvents has no row 13");
    expectStopped("pick cboDo \"no grid\"\nrow dgdEvents 1\n", "line 3: dgdEvents has no row 1");
    expectStopped("pick dgdEvents \"a\"\n", "line 2: dgdEvents is no list");
    expectStopped("row lstNames 1\n", "line 2: lstNames is no grid");
    expectStopped("type cboField \"a\"\n", "line 2: cboField is no text box");
}

TEST_P(ListScripts, AreRefusedWhereNothingCanBePicked) {
    expectPlayed(
        "pick cboOp \"none\"\npick lstDo \"hide\"\npick lstDo \"nothing\"\nfocus txtKeeper\npick lstNames "
        "\"Ann\"\n"
        "row dgdEvents 2\npick dirFolder \"/\"\npick drvDrive #0\nclick lstNames\nfocus frmLists.dgdEvents\n"
        "show lstNames dgdEvents\n",
        "> pick cboOp \"none\"\n"
        "refused cboOp disabled\n"
        "> pick lstDo \"hide\"\n"
        "focus cmdFewer\n"
        "> pick lstDo \"nothing\"\n"
        "refused lstDo hidden\n"
        "> focus txtKeeper\n"
        "focus txtKeeper\n"
        "> pick lstNames \"Ann\"\n"
        "refused lstNames kept\n"
        "> row dgdEvents 2\n"
        "refused dgdEvents kept\n"
        "> pick dirFolder \"/\"\n"
        "refused dirFolder kept\n"
        "> pick drvDrive #0\n"
        "refused drvDrive kept\n"
        "> click lstNames\n"
        "refused lstNames kept\n"
        "> focus frmLists.dgdEvents\n"
        "refused frmLists.dgdEvents kept\n"
        "> show lstNames dgdEvents\n"
        "lstNames list=[\"Ann\"|\"Bob\"|\"a \\\"b\\\"|c\"|\"Carl\"|\"carla\"|\"\xC3\x89mile\"] picked=\"\" "
        "enabled=yes visible=yes focus=no\n"
        "dgdEvents caption=\"&Event List\" row=1 rows=12 enabled=yes visible=yes focus=no\n"
        "  1: \"1\"|\"Event 1\"|\"0.00\"\n  2: \"2\"|\"Event 2\"|\"0.00\"\n  3: \"3\"|\"Event 3\"|\"0.00\"\n"
        "  4: \"4\"|\"Event 4\"|\"0.00\"\n  5: \"5\"|\"Event 5\"|\"0.00\"\n  6: \"6\"|\"Event 6\"|\"0.00\"\n"
        "  7: \"7\"|\"Event 7\"|\"0.00\"\n  8: \"8\"|\"Event 8\"|\"0.00\"\n  9: \"9\"|\"Event 9\"|\"0.00\"\n"
        "  10: \"10\"|\"Event 10\"|\"0.00\"\n  11: \"11\"|\"Event 11\"|\"0.00\"\n"
        "  12: \"12\"|\"Event 12\"|\"0.00\"\n");
}

TEST_P(ListScripts, AreRefusedWhereTheFocusGoesElsewhereOrTheListGoesOff) {
    expectPlayed(
        "focus txtDeflector\npick cboField \"Comment\"\nfocus txtDeflector\nrow dgdEvents 2\n"
        "focus txtDeflector\nclick lstNames\nfocus txtClosing\npick cboField \"Comment\"\nfocus txtHiding\n"
        "click cmdRestore\npick frmLists.lstNames \"Bob\"\n",
        "> focus txtDeflector\n"
        "focus txtDeflector\n"
        "> pick cboField \"Comment\"\n"
        "refused cboField kept\n"
        "focus txtFirst\n"
        "> focus txtDeflector\n"
        "focus txtDeflector\n"
        "> row dgdEvents 2\n"
        "refused dgdEvents kept\n"
        "focus txtFirst\n"
        "> focus txtDeflector\n"
        "focus txtDeflector\n"
        "> click lstNames\n"
        "refused lstNames kept\n"
        "focus txtFirst\n"
        "> focus txtClosing\n"
        "focus txtClosing\n"
        "> pick cboField \"Comment\"\n"
        "refused cboField disabled\n"
        "> focus txtHiding\n"
        "focus txtHiding\n"
        "> click cmdRestore\n"
        "hide frmLists\n"
        "focus none\n"
        "> pick frmLists.lstNames \"Bob\"\n"
        "refused frmLists.lstNames hidden\n");
}

TEST_P(ListScripts, ClickAndFocusTakeTheFocusOnly) {
    expectPlayed(
        "click cboField\nclick lstNames\nclick dgdEvents\nfocus cboField\nfocus dirFolder\nclick dirFolder\n"
        "show cboField lblSeen\n",
        "> click cboField\n"
        "focus cboField\n"
        "> click lstNames\n"
        "focus lstNames\n"
        "> click dgdEvents\n"
        "focus dgdEvents\n"
        "> focus cboField\n"
        "focus cboField\n"
        "> focus dirFolder\n"
        "focus dirFolder\n"
        "> click dirFolder\n"
        "> show cboField lblSeen\n"
        "cboField list=[\"Center Name\"|\"Comment\"|\"Date Bowled\"|\"Comment\"] picked=\"\" enabled=yes "
        "visible=yes focus=no\n"
        "lblSeen caption=\"nothing\" enabled=yes visible=yes focus=no\n");
}

TEST_P(ListScripts, ShowTheBoxesOfAClick) {
    for (const std::string list : {"cboDo", "lstDo"})
        expectPlayed("pick " + list + " \"boxes\"\nanswer OK\nanswer No\nshow lblSeen\n",
                     "> pick " + list +
                         " \"boxes\"\n"
                         "box title=\"Tallybrook\" icon=none buttons=OK default=OK text=\"One.\"\n"
                         "> answer OK\n"
                         "box title=\"Tallybrook\" icon=none buttons=Yes|No default=Yes text=\"Two.\"\n"
                         "> answer No\n"
                         "focus " +
                         list +
                         "\n"
                         "> show lblSeen\n"
                         "lblSeen caption=\"did boxes\" enabled=yes visible=yes focus=no\n");
}

TEST_P(ListScripts, GoOnAfterWhateverAClickDoes) {
    for (const std::string list : {"cboDo", "lstDo"}) {
        expectPlayed("pick " + list + " \"other\"\nclick mnuBack\npick " + list + " \"unload\"\n",
                     "> pick " + list +
                         " \"other\"\n"
                         "hide frmLists\n"
                         "focus none\n"
                         "> click mnuBack\n"
                         "unload frmTwo\n"
                         "show frmLists\n"
                         "focus " +
                         list +
                         "\n"
                         "> pick " +
                         list +
                         " \"unload\"\n"
                         "unload frmLists\n"
                         "end program\n");
        expectPlayed("pick " + list + " \"fail\"\n", "> pick " + list +
                                                         " \"fail\"\n"
                                                         "run-time error 13 \"Type mismatch\"\n"
                                                         "end program\n");
        expectPlayed("pick " + list + " \"give up\"\npress \"Up\"\nshow lblSeen\n",
                     "> pick " + list +
                         " \"give up\"\n"
                         "focus " +
                         list +
                         "\n"
                         "> press \"Up\"\n"
                         "> show lblSeen\n"
                         "lblSeen caption=\"did no grid\" enabled=yes visible=yes focus=no\n");
    }
}

TEST_P(ListScripts, KeysMoveInLists) {
    expectPlayed(
        "focus lstNames\npress \"Down\"\npress \"c\"\npress \"C\"\npress \"\xC3\xA9\"\nshow lblSeen\n"
        "press \"PageUp\"\nshow lblSeen\npress \" \"\npress \"Alt+D\"\npress \"Alt+Down\"\npress \"F4\"\n"
        "press \"Space\"\npress \"End\"\nshow cboOp\n",
        "> focus lstNames\n"
        "focus lstNames\n"
        "> press \"Down\"\n> press \"c\"\n> press \"C\"\n> press \"\xC3\xA9\"\n"
        "> show lblSeen\n"
        "lblSeen caption=\"name \xC3\x89mile\" enabled=yes visible=yes focus=no\n"
        "> press \"PageUp\"\n"
        "> show lblSeen\n"
        "lblSeen caption=\"name Ann\" enabled=yes visible=yes focus=no\n"
        "> press \" \"\n"
        "> press \"Alt+D\"\n"
        "focus cboField\n"
        "> press \"Alt+Down\"\n> press \"F4\"\n> press \"Space\"\n"
        "> press \"End\"\n"
        "focus cboOp\n"
        "> show cboOp\n"
        "cboOp list=[\"is\"|\"contains Comment\"] picked=\"\" enabled=yes visible=yes focus=yes\n");
}

TEST_P(ListScripts, KeysMoveInAGrid) {
    expectPlayed(
        "click cmdFewer\nfocus dgdEvents\npress \"Down\"\npress \"Right\"\npress \"End\"\npress \"Up\"\n"
        "show dgdEvents\n",
        "> click cmdFewer\n"
        "focus cmdFewer\n"
        "> focus dgdEvents\n"
        "focus dgdEvents\n"
        "> press \"Down\"\n> press \"Right\"\n> press \"End\"\n> press \"Up\"\n"
        "> show dgdEvents\n"
        "dgdEvents caption=\"&Event List\" row=3 rows=4 enabled=yes visible=yes focus=yes\n"
        "  1: \"9\"|\"Event 9\"|\"0.00\"\n"
        "  2: \"10\"|\"Event 10\"|\"0.00\"\n"
        "  3: \"11\"|\"Event 11\"|\"0.00\"\n"
        "  4: \"12\"|\"Event 12\"|\"0.00\"\n");
}

// --- Folders -----------------------------------------------------------------------------------------------

class FolderScripts : public ListScripts {
protected:
    FolderScripts() {
        for (const char* inside : {"a", "b/inner", ".hidden/deep"})
            fs::create_directories(folder.path() / inside);
    }
    [[nodiscard]] std::string at(const std::string& inside) const {
        return (folder.path() / inside).string();
    }
    static std::string seen(const std::string& path) {
        return "> show lblSeen\nlblSeen caption=\"folder " + path + "\" enabled=yes visible=yes focus=no\n";
    }

    const TemporaryFolder folder;
};

INSTANTIATE_TEST_SUITE_P(On, FolderScripts, testing::ValuesIn(kStages),
                         [](const auto& stage) { return stage.param; });

TEST_P(FolderScripts, PickAnyFolderByItsPath) {
    const std::string hidden = "pick dirFolder \"" + at(".hidden/deep") + "\"\n";
    const std::string plain = "pick dirFolder \"" + at("b") + "/\"\n";
    expectPlayed(hidden + "show lblSeen\n" + plain + "show lblSeen\npick dirFolder #0\nshow lblSeen\n",
                 "> " + hidden + "focus dirFolder\n" + seen(at(".hidden/deep")) + "> " + plain +
                     seen(at("b")) + "> pick dirFolder #0\n" + seen("/"));
}

TEST_P(FolderScripts, PickAFolderFarToTheRight) {
    const std::string deep = at("b/1/2/3/4/5/6/7/8/9/10/11/12");
    fs::create_directories(deep + "/left");
    fs::create_directories(deep + "/right");
    const std::string left = "pick dirFolder \"" + deep + "/left\"\n";
    const std::string right = "pick dirFolder \"" + deep + "/right\"\n";
    expectPlayed(left + right + "show lblSeen\n",
                 "> " + left + "focus dirFolder\n> " + right + seen(deep + "/right"));
}

TEST_P(FolderScripts, ShowTheWayToAFolderAndWhatIsInIt) {
    const Outcome outcome =
        playLists(GetParam(), "start\npick dirFolder \"" + at("b") + "\"\nshow dirFolder\n");
    EXPECT_NE(outcome.transcript.find("dirFolder list=[\"/\"|"), std::string::npos) << outcome.transcript;
    EXPECT_NE(outcome.transcript.find("|\"" + at("b") + "\"|\"" + at("b/inner") + "\"] picked=\"" + at("b") +
                                      "\" enabled=yes visible=yes focus=yes\n"),
              std::string::npos)
        << outcome.transcript;
}

TEST_P(FolderScripts, KeysLookForAFolderAndSpacePicksIt) {
    const std::string pick = "pick dirFolder \"" + at("a") + "\"\n";
    expectPlayed(
        pick +
            "press \"Down\"\npress \"Right\"\npress \"Right\"\nshow lblSeen\npress \"Space\"\nshow lblSeen\n",
        "> " + pick + "focus dirFolder\n> press \"Down\"\n> press \"Right\"\n> press \"Right\"\n" +
            seen(at("a")) + "> press \"Space\"\n" + seen(at("b/inner")));
}

TEST_P(FolderScripts, PickADrive) {
    expectPlayed("pick drvDrive \"/\"\nshow lblSeen\n",
                 "> pick drvDrive \"/\"\n"
                 "focus drvDrive\n"
                 "> show lblSeen\n"
                 "lblSeen caption=\"drive /\" enabled=yes visible=yes focus=no\n");
}

// --- The same on both displays -----------------------------------------------------------------------------

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

std::string joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    return text;
}

/// What a person may do on the screen; some of it in a row, to get somewhere.
std::vector<std::string> possibleCommands() {
    const std::string folder = TALLYBROOK_SOURCE_DIR;
    std::vector<std::string> commands{
        "pick cboField \"Comment\"",
        "pick cboField #3",
        "pick cboOp #0",
        "pick cboOp \"later\"",
        "pick lstNames \"Carl\"",
        "pick lstNames #4",
        "pick drvDrive #0",
        "pick dirFolder \"" + folder + "/src\"",
        "pick dirFolder \"" + folder +
            "/src\"\npress \"Down\"\npress \"Right\"\npress \"Down\"\npress \"Space\"",
        "row dgdEvents 2",
        "row dgdEvents 12",
        "click cmdFewer",
        "click cmdRestore",
        "click cboField",
        "click lstNames",
        "click mnuOther",
        "click mnuBack",
        "focus dgdEvents",
        "focus lstDo",
        "focus txtFilling",
        "focus txtFilling\npick cboOp #1",
        "focus txtClosing\npick cboField #0",
        "focus txtDeflector",
        "focus txtDeflector\nrow dgdEvents 3",
        "focus txtKeeper\npick cboDo \"box\"\ntype txtKeeper \"free\"",
        "focus txtHiding",
        "tab",
        "backtab",
        "answer OK",
        "answer Yes",
        "show cboField cboOp lstNames cboDo lstDo lblSeen dirFolder",
        "show dgdEvents",
        "screens"};
    for (const std::string& action : frmLists::kActions) {
        commands.push_back("pick cboDo \"" + action + "\"");
        commands.push_back("pick lstDo \"" + action + "\"");
    }
    for (const char* key : {"Down", "Up",   "Home",       "End",    "PageUp", "PageDown", "c",
                            "b",    "n",    "Space",      "Return", "Alt+D",  "Alt+R",    "Alt+Down",
                            "F4",   "Left", "Shift+Down", "F2",     "Tab",    "Shift+Tab"})
        commands.push_back(std::string("press \"") + key + "\"");
    return commands;
}

const std::string kAllStates =
    "show frmLists.cboField frmLists.cboOp frmLists.lstNames frmLists.drvDrive frmLists.dirFolder\n"
    "show frmLists.cboDo frmLists.lstDo frmLists.lblSeen frmLists.txtKeeper frmLists.dgdEvents\n"
    "screens\n";

/// The line at which the play stopped, from 1.
std::size_t stoppedAt(const Outcome& outcome) {
    return std::stoul(outcome.errors.substr(std::string("line ").size()));
}

/// The script, with its boxes answered and what cannot be carried out left out, as the model finds it.
std::string playable(const std::string& script) {
    std::vector<std::string> lines = linesOf("start\n" + script + kAllStates + "note \"end\"\n");
    Outcome outcome = playLists("model", joined(lines));
    while (outcome.status != status::kPlayed) {
        const auto stopped = lines.begin() + static_cast<std::ptrdiff_t>(stoppedAt(outcome)) - 1;
        if (outcome.errors.find("unanswered box") != std::string::npos)
            lines.insert(stopped, outcome.transcript.ends_with("\"Two.\"\n") ? "answer No" : "answer OK");
        else if (outcome.errors.find("has ended") != std::string::npos)
            lines.erase(stopped, lines.end() - 1);
        else
            lines.erase(stopped);
        outcome = playLists("model", joined(lines));
    }
    return joined(lines);
}

void expectTheSame(const std::string& script) {
    const Outcome model = playLists("model", script);
    const Outcome desktop = playLists("desktop", script);
    RC_LOG() << script;
    RC_ASSERT(desktop.transcript == model.transcript);
    RC_ASSERT(desktop.errors == model.errors);
    RC_ASSERT(desktop.status == model.status);
}

rc::Gen<std::string> anyScript() {
    const auto commands = rc::gen::elementOf(possibleCommands());
    return rc::gen::map(rc::gen::resize(30, rc::gen::container<std::vector<std::string>>(commands)), joined);
}

TEST(ListsOnBothDisplays, LookTheSame) {
    EXPECT_TRUE(rc::check("random use of lists and grids", [] { expectTheSame(playable(*anyScript())); }));
}

TEST(ListsOnBothDisplays, StopAtTheSame) {
    EXPECT_TRUE(rc::check("random use up to what cannot be carried out",
                          [] { expectTheSame("start\n" + *anyScript()); }));
}

}  // namespace

}  // namespace tallybrook::test
