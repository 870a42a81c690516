#include "BrowsePlay.h"
#include "browse/frmGameList.h"
#include "runtime/TextFile.h"
#include "support/SameText.h"

#include <array>
#include <filesystem>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

const std::string kWriteReport = "frmGameList, Write_Report.";

class GameList : public testing::Test {
protected:
    GameList() {
        play.addEvent(
            "Thursday League",
            {{"fldCenterName", "Brook Lanes"}, {"fldCenterLoc", "Millford"}, {"fldComment", "third night"}});
        play.addGame(1, 1,
                     {{"fldLanePair", "13-14"},
                      {"fldLeftLane", std::int64_t{13}},
                      {"fldRightLane", std::int64_t{14}},
                      {"fldLaneCond", "dry"},
                      {"fldGameScore", std::int64_t{187}},
                      {"fldComment", "slow start"},
                      {"fldBowlHand", "N"},
                      {"fldFrmsRecorded", std::int64_t{0}}});
    }

    static Expected found(int games) {
        return {"Tallybrook - Search Results", Answer::OK,
                "Based on your search criteria, " + std::to_string(games) +
                    " games(s) were found.\r\n"
                    "Highlight a game and click Retrieve Record to create a report."};
    }
    /// The list of all games, in the order of their scores.
    void openList(int games = 1) {
        play.handOverTo("frmSearchGames");
        play.pick("cboSearchFld(0)", "Game Score");
        play.pick("cboSearchOp(0)", "is greater or equal to");
        play.tab();
        play.click("cmdSearch", {found(games)});
    }
    [[nodiscard]] fs::path file() const { return play.dataFolder() / "game.txt"; }
    [[nodiscard]] Expected ready(const fs::path& path) const {
        return {"Report Ready", Answer::OK, "The game report is ready.\r\nLocation: " + path.string()};
    }
    /// Reports on the current row, and returns the lines of the file.
    std::string report(const std::vector<Expected>& boxes) {
        play.display.expectDialog({"Game Report", file()});
        play.click("cmdGetRecord", boxes);
        return bytesOf(file());
    }
    /// Reports on the current row, a game without frames, into a file that cannot be opened: that and every
    /// line fail.
    void reportIntoNothing(const fs::path& path, int refusal) {
        std::vector<Expected> boxes{BrowsePlay::failure(kWriteReport, refusal)};
        const Expected noLine = BrowsePlay::failure(kWriteReport, error::kBadFileNameOrNumber);
        boxes.insert(boxes.end(), head().size(), noLine);
        boxes.push_back({"No Frames"});
        boxes.insert(boxes.end(), 1 + end().size(), noLine);
        boxes.insert(boxes.end(), {ready(path), found(1)});
        play.display.expectDialog({"Game Report", path});
        play.click("cmdGetRecord", boxes);
        EXPECT_EQ(play.screen().name(), "frmGameList");
    }
    /// The head of a report on game 1.
    [[nodiscard]] static std::vector<std::string> head() {
        return {"Report Date: 11/14/2026 9:55:32 PM",
                "Event Information",
                "*****************",
                "Event Name: Thursday League",
                "Center Name: Brook Lanes",
                "Location: Millford",
                "Date Bowled: 11/12/2026",
                "Comment: third night",
                "----- Game Information (Game #1) -----",
                "Game: 1\tLane Pair: 13-14\tGame Score: 187",
                "Lane Condition: dry",
                "Comment: slow start",
                "----- Frame Information (Game #1) -----"};
    }
    /// What stands for a frame in which ball, foot position, target and comment are empty.
    [[nodiscard]] static std::vector<std::string> frame(int number, const std::string& balls,
                                                        const std::string& lane = "13") {
        return {"Frame: " + std::to_string(number) + "\tLane: " + lane,
                "Ball Used: \tFoot Position: \tLane Target: ",
                "First Ball\tSecond Ball\tFill Ball",
                "----------\t-----------\t---------",
                balls,
                "Comment: ",
                "*"};
    }
    [[nodiscard]] static std::vector<std::string> end() {
        return {"", "Tallybrook 2.0 by the Tallybrook team", "All Rights Reserved"};
    }
    [[nodiscard]] static std::vector<std::string> lineScore(const std::string& cells) {
        return {"Line Score:", "1\t2\t3\t4\t5\t6\t7\t8\t9\t10\t", cells};
    }
    static std::string joined(const std::vector<std::vector<std::string>>& blocks) {
        std::string text;
        for (const auto& block : blocks)
            text += withLineEnds(block);
        return text;
    }
    void addFrame(int number, const std::string& first, const std::string& second = "",
                  const std::string& fill = "") {
        play.addFrame(1, 1, number,
                      {{"fldLaneBowled", std::int64_t{13}},
                       {"fldFirstBallRes", first},
                       {"fldSecondBallRes", second},
                       {"fldFillBallRes", fill}});
    }
    [[nodiscard]] static std::vector<Expected> again(const Expected& box) { return {box, found(1)}; }

    BrowsePlay play;
};

TEST_F(GameList, ShowsTheGamesOfTheSearch) {
    play.addGame(1, 2, {{"fldGameScore", std::int64_t{150}}});
    openList(2);
    EXPECT_EQ(play.display.boxes().back().icon, Icon::None);
    EXPECT_EQ(play.screen().caption(), "Game Listing");
    EXPECT_EQ(play.grid().caption(), "Game Search Results");
    EXPECT_EQ(play.cells(1), "1|2||0|0||150|||0");
    EXPECT_EQ(play.cells(2), "1|1|13-14|13|14|dry|187|slow start|N|0");
    EXPECT_EQ(play.focus(), "dgdEventList");
}

TEST_F(GameList, GreetsBeforeItIsSeen) {
    play.handOverTo("frmSearchGames");
    play.pick("cboSearchFld(0)", "Game Score");
    play.pick("cboSearchOp(0)", "is greater or equal to");
    play.tab();
    play.display.forgetEvents();
    Expected greeting = found(1);
    std::vector<std::string> before;
    greeting.meanwhile = [&] { before = play.display.events(); };
    play.click("cmdSearch", {greeting});
    EXPECT_EQ(before, (std::vector<std::string>{"hide frmSearchGames", "load frmGameList"}));
    EXPECT_EQ(play.lastEvent(), "show frmGameList");
}

TEST_F(GameList, NamesItsColumnsAndControls) {
    openList();
    std::vector<std::string> columns;
    for (const GridColumn& column : play.grid().columns())
        columns.push_back(column.caption + "=" + column.field);
    EXPECT_EQ(columns, (std::vector<std::string>{
                           "Event=fldSessionNum", "Game Number=fldGameNum", "Lane Pair=fldLanePair",
                           "Left Lane=fldLeftLane", "Right Lane=fldRightLane", "Lane Condition=fldLaneCond",
                           "Game Score=fldGameScore", "Comment=fldComment", "Bowling Hand=fldBowlHand",
                           "Frames Recorded=fldFrmsRecorded"}));
    const std::vector<std::array<std::string, 3>> controls{
        {"cmdGetRecord", "R&etrieve Game", "Retrieve the record for the selected game"},
        {"cmdPrevious", "&Previous Screen", "Return to the previous screen"},
        {"cmdMain", "&Main Menu", "Return to the main menu"},
        {"cmdExit", "E&xit", "Exit Tallybrook"},
        {"mnuFile", "&File", ""},
        {"mnuExit", "E&xit", ""},
        {"mnuCommands", "&Commands", ""},
        {"mnuRetrieve", "R&etrieve Game", ""},
        {"mnuPrevious", "&Previous Screen", ""},
        {"mnuMain", "&Main Menu", ""},
        {"mnuHelp", "&Help", ""},
        {"mnuTBKHelp", "Tallybrook Help", ""},
        {"mnuAbout", "&About", ""}};
    for (const auto& [name, caption, tip] : controls) {
        EXPECT_EQ(play.control(name).caption(), caption);
        EXPECT_EQ(play.control(name).tip(), tip);
    }
}

TEST_F(GameList, LeadsTheTabFromTheGamesToItsButtons) {
    openList();
    EXPECT_EQ(play.tabOrder(), (std::vector<std::string>{"dgdEventList", "cmdGetRecord", "cmdPrevious",
                                                         "cmdMain", "cmdExit"}));
}

TEST_F(GameList, ReportsOnAGameOfPinfall) {
    play.addFrame(1, 1, 1,
                  {{"fldLaneBowled", std::int64_t{13}},
                   {"fldBallUsed", "Red"},
                   {"fldFootPos", "20"},
                   {"fldLaneTgt", "2nd arrow"},
                   {"fldFirstBallRes", "7-10"},
                   {"fldSecondBallRes", "10"},
                   {"fldComment", "unlucky"}});
    for (int number = 2; number <= 9; ++number)
        addFrame(number, number % 2 == 0 ? "X" : "3-6", number % 2 == 0 ? "" : "/");
    addFrame(10, "X", "3-6", "/");
    openList();
    play.display.forgetEvents();
    const std::string text = report(again(ready(file())));
    EXPECT_TRUE(isSameText(
        text, joined({head(),
                      {"Frame: 1\tLane: 13", "Ball Used: Red\tFoot Position: 20\tLane Target: 2nd arrow",
                       "First Ball\tSecond Ball\tFill Ball", "----------\t-----------\t---------",
                       "7-10\t\t10", "Comment: unlucky", "*"},
                      frame(2, "X\t\t"),
                      frame(3, "3-6\t\t/"),
                      frame(4, "X\t\t"),
                      frame(5, "3-6\t\t/"),
                      frame(6, "X\t\t"),
                      frame(7, "3-6\t\t/"),
                      frame(8, "X\t\t"),
                      frame(9, "3-6\t\t/"),
                      frame(10, "X\t\t3-6\t\t/"),
                      lineScore("81\tX\t8/\tX\t8/\tX\t8/\tX\t8/\tX8/\t"),
                      end()})));
    EXPECT_EQ(play.display.events(),
              (std::vector<std::string>{"hide frmGameList", "busy", "default", "unload frmGameList",
                                        "load frmGameList", "show frmGameList"}));
    EXPECT_EQ(play.display.boxes()[play.display.boxes().size() - 2].icon, Icon::None);
    EXPECT_EQ(play.session().gSessionNum, Int32(1));
    EXPECT_EQ(play.session().gGameNum, Int16(1));
}

TEST_F(GameList, IsNoLongerBusyAsItTellsOfTheReport) {
    addFrame(1, "X");
    openList();
    play.display.forgetEvents();
    Expected box = ready(file());
    std::vector<std::string> before;
    box.meanwhile = [&] { before = play.display.events(); };
    report(again(box));
    EXPECT_EQ(before, (std::vector<std::string>{"hide frmGameList", "busy", "default"}));
}

TEST_F(GameList, ChoosesTheFileInASaveDialog) {
    openList();
    report({{"No Frames"}, ready(file()), found(1)});
    const FileDialog& dialog = play.display.dialogs().back();
    EXPECT_EQ(dialog.purpose, FileDialog::Purpose::Save);
    EXPECT_EQ(dialog.folder, (fs::current_path() / "Reports" / "").string());
    EXPECT_EQ(dialog.filter, "Text Files(*.txt)|*.txt");
    EXPECT_EQ(dialog.name, "Game Report.txt");
}

TEST_F(GameList, NotesAGameWithoutFrames) {
    openList();
    const std::string text = report(
        {{"No Frames", Answer::OK, "No frames were recorded for this game."}, ready(file()), found(1)});
    EXPECT_EQ(play.display.boxes()[play.display.boxes().size() - 3].icon, Icon::None);
    EXPECT_TRUE(isSameText(text, joined({head(), {"NOTE: No frames were recorded for this game."}, end()})));
}

TEST_F(GameList, LeavesTheCellsOfALineScoreEmpty) {
    for (int number = 1; number <= 10; ++number)
        play.addFrame(1, 1, number, {{"fldLineScore", "9/"}, {"fldLaneBowled", std::int64_t{14}}});
    openList();
    std::vector<std::vector<std::string>> blocks{head()};
    for (int number = 1; number <= 9; ++number)
        blocks.push_back(frame(number, "\t\t", "14"));
    blocks.insert(blocks.end(), {frame(10, "\t\t\t\t", "14"), lineScore("\t\t\t\t\t\t\t\t\t\t"), end()});
    EXPECT_TRUE(isSameText(report(again(ready(file()))), joined(blocks)));
}

TEST_F(GameList, LeavesTheTenthCellOfABrokenOffGameEmpty) {
    std::vector<std::vector<std::string>> blocks{head()};
    for (int number = 1; number <= 9; ++number) {
        addFrame(number, "7", "/");
        blocks.push_back(frame(number, "7\t\t/"));
    }
    openList();
    blocks.insert(blocks.end(), {lineScore("9/\t9/\t9/\t9/\t9/\t9/\t9/\t9/\t9/\t\t"), end()});
    EXPECT_TRUE(isSameText(report(again(ready(file()))), joined(blocks)));
}

TEST_F(GameList, PutsTheCellsByTheirRowsWhateverTheFramesNumbers) {
    addFrame(9, "X", "X", "X");
    addFrame(3, "7");
    addFrame(4, "4-7", "7");
    openList();
    EXPECT_TRUE(isSameText(report(again(ready(file()))),
                           joined({head(), frame(3, "7\t\t"), frame(4, "4-7\t\t7"), frame(9, "X\t\tX"),
                                   lineScore("9\t81\tXX\t\t\t\t\t\t\t\t"), end()})));
}

TEST_F(GameList, GoesOnAfterAnEleventhFrame) {
    std::vector<std::vector<std::string>> blocks{head()};
    for (int number = 1; number <= 10; ++number) {
        addFrame(number, "X");
        blocks.push_back(frame(number, number < 10 ? "X\t\t" : "X\t\t\t\t"));
    }
    addFrame(11, "7-10", "10", "X");
    addFrame(12, "X");
    openList();
    blocks.insert(blocks.end(), {frame(11, "7-10\t\t10\t\tX"), frame(12, "X\t\t\t\t"),
                                 lineScore("X\tX\tX\tX\tX\tX\tX\tX\tX\tX\t"), end()});
    // A box for each ball that finds no cell: two of the eleventh frame and one of the twelfth.
    const Expected noCell = BrowsePlay::failure(kWriteReport, error::kSubscriptOutOfRange);
    EXPECT_TRUE(isSameText(report({noCell, noCell, noCell, ready(file()), found(1)}), joined(blocks)));
}

TEST_F(GameList, EndsTheFramesAtOneThatCannotBeLeft) {
    std::vector<std::vector<std::string>> blocks{head()};
    for (int number = 1; number <= 10; ++number) {
        addFrame(number, "X");
        blocks.push_back(frame(number, number < 10 ? "X\t\t" : "X\t\t\t\t"));
    }
    addFrame(11, "X", "X", "X");
    addFrame(12, "X");
    openList();
    // The frames go while the box of the eleventh is up, which finds no cell.
    Expected noCell = BrowsePlay::failure(kWriteReport, error::kSubscriptOutOfRange);
    DataControl& frames = dynamic_cast<frmGameList&>(play.screen()).adoTBKFrame;
    noCell.meanwhile = [&] { frames.recordset().Close(); };
    const Expected gone = BrowsePlay::failure(kWriteReport, error::kObjectClosed);
    std::vector<std::string> eleventh = frame(11, "X\t\tX\t\tX");
    std::erase(eleventh, "Comment: ");
    blocks.insert(blocks.end(), {eleventh, lineScore("X\tX\tX\tX\tX\tX\tX\tX\tX\tX\t"), end()});
    // Its other balls, its comment and the way to the next frame.
    EXPECT_TRUE(
        isSameText(report({noCell, gone, gone, gone, gone, ready(file()), found(1)}), joined(blocks)));
}

TEST_F(GameList, WritesNullsAsNothing) {
    BrowsePlay other;
    other.addEvent("Nulls", {{"fldCenterName", Null{}},
                             {"fldCenterLoc", Null{}},
                             {"fldDateBowled", Null{}},
                             {"fldComment", Null{}}});
    other.addGame(1, 1,
                  {{"fldLanePair", Null{}},
                   {"fldGameScore", std::int64_t{9}},
                   {"fldLaneCond", Null{}},
                   {"fldComment", Null{}}});
    other.addFrame(1, 1, 1,
                   {{"fldLaneBowled", Null{}},
                    {"fldBallUsed", Null{}},
                    {"fldFootPos", Null{}},
                    {"fldLaneTgt", Null{}},
                    {"fldFirstBallRes", Null{}},
                    {"fldSecondBallRes", Null{}},
                    {"fldFillBallRes", Null{}},
                    {"fldComment", Null{}}});
    other.handOverTo("frmSearchGames");
    other.pick("cboSearchFld(0)", "Game Score");
    other.pick("cboSearchOp(0)", "is greater than");
    other.tab();
    other.click("cmdSearch", {found(1)});
    const fs::path path = other.dataFolder() / "nulls.txt";
    other.display.expectDialog({"Game Report", path});
    other.click("cmdGetRecord", {{"Report Ready"}, found(1)});
    EXPECT_TRUE(
        isSameText(bytesOf(path),
                   joined({{"Report Date: 11/14/2026 9:55:32 PM", "Event Information", "*****************",
                            "Event Name: Nulls", "Center Name: ", "Location: ", "Date Bowled: ", "Comment: ",
                            "----- Game Information (Game #1) -----", "Game: 1\tLane Pair: \tGame Score: 9",
                            "Lane Condition: ", "Comment: ", "----- Frame Information (Game #1) -----"},
                           frame(1, "\t\t", ""),
                           lineScore("\t\t\t\t\t\t\t\t\t\t"),
                           end()})));
}

TEST_F(GameList, ReplacesAFileWithoutAQuestion) {
    addFrame(1, "X");
    openList();
    {
        TextWriter before(file());
        before.writeLine(std::string(5000, 'x'));
    }
    const std::string text = report(again(ready(file())));
    EXPECT_TRUE(text.ends_with("All Rights Reserved\r\n"));
    EXPECT_EQ(text.find("xxx"), std::string::npos);
}

TEST_F(GameList, HasTheWholeReportInItsFileWhenItSaysSo) {
    addFrame(1, "X");
    openList();
    std::string text;
    Expected box = ready(file());
    box.meanwhile = [&] { text = bytesOf(file()); };
    const std::string whole = report(again(box));
    EXPECT_TRUE(isSameText(text, whole));
}

TEST_F(GameList, NeverStartsAReportThatWasCancelled) {
    for (const Answer answer : {Answer::OK, Answer::Cancel}) {
        openList();
        play.display.forgetEvents();
        play.display.expectDialog({"Game Report", std::nullopt});
        play.click("mnuRetrieve", {{"Report", answer,
                                    "No file name was specified for the report.\r\n"
                                    "Continue? (Clicking Cancel will return to the event list)"}});
        EXPECT_EQ(play.display.boxes().back().buttons, Buttons::OKCancel);
        EXPECT_EQ(play.display.boxes().back().defaultAnswer(), Answer::OK);
        EXPECT_EQ(play.display.boxes().back().icon, Icon::None);
        EXPECT_EQ(play.display.events(), (std::vector<std::string>{"hide frmGameList", "unload frmGameList",
                                                                   "show frmSearchGames"}));
        play.click("cmdPrevious", {{"Previous Screen", Answer::Yes}});
    }
}

TEST_F(GameList, LeavesWhenTheEventOfAGameIsNotThere) {
    play.addGame(7, 1, {{"fldGameScore", std::int64_t{250}}});
    openList(2);
    play.row(2);
    play.display.forgetEvents();
    const std::string text = report({{"Database Error", Answer::OK,
                                      "Record could not be retrieved.\r\nThis could be due to timing.\r\n"
                                      "Click OK to return to the previous screen.\r\n"
                                      "Debug Information: Module - Game List, Write_Report"}});
    EXPECT_EQ(play.display.boxes().back().icon, Icon::None);
    EXPECT_TRUE(isSameText(text, withLineEnds({"Report Date: 11/14/2026 9:55:32 PM", "Event Information",
                                               "*****************"})));
    EXPECT_EQ(play.display.events(), (std::vector<std::string>{"hide frmGameList", "busy",
                                                               "unload frmGameList", "show frmSearchGames"}));
}

TEST_F(GameList, GoesOnWithEveryLineOfAFileThatCannotBeOpened) {
    openList();
    reportIntoNothing(play.dataFolder() / "missing" / "game.txt", error::kPathNotFound);
}

TEST_F(GameList, LeavesTheLogbookAloneWhereItIsChosenForAReport) {
    openList();
    const std::string before = bytesOf(play.program().logbookFile());
    reportIntoNothing(play.program().logbookFile(), error::kPathFileAccess);
    EXPECT_TRUE(isSameText(bytesOf(play.program().logbookFile()), before));
}

TEST_F(GameList, WritesNoReportThroughALinkToAFileThatTheProgramMayYetHave) {
    openList();
    fs::remove(play.dataFolder() / "tbrkcfg.conf");
    const fs::path link = play.dataFolder() / "game.txt";
    fs::create_symlink("tbrkcfg.conf", link);
    reportIntoNothing(link, error::kPathFileAccess);
    EXPECT_TRUE(fs::is_symlink(link));
}

TEST_F(GameList, OffersToLoadAnewWhenARecordIsNotThere) {
    openList();
    const Expected retry{"Database Error", Answer::Retry,
                         "New record could not be added or updated.\r\n"
                         "This could be due to timing. Click Retry to attempt to add the record again.\r\n"
                         "Click Cancel to return to the previous screen.\r\n"
                         "Debug Information: Module - Game List, Form Load"};
    const auto failToLoad = [&](const Expected& box, const std::vector<Expected>& more) {
        std::vector<Expected> boxes{box};
        boxes.insert(boxes.end(), more.begin(), more.end());
        const Handler step = dynamic_cast<frmGameList&>(play.screen()).loadHandler();
        play.display.forgetEvents();
        play.run([&] { step([] { throw RunTimeError(error::kNoCurrentRow); }); }, boxes);
    };
    failToLoad(retry, {found(1)});
    EXPECT_EQ(play.display.events(),
              (std::vector<std::string>{"unload frmGameList", "load frmGameList", "show frmGameList"}));
    const MessageBox& offered = play.display.boxes()[play.display.boxes().size() - 2];
    EXPECT_EQ(offered.buttons, Buttons::RetryCancel);
    EXPECT_EQ(offered.defaultAnswer(), Answer::Retry);
    EXPECT_EQ(offered.icon, Icon::None);
    failToLoad({retry.title, Answer::Cancel, retry.text}, {});
    EXPECT_EQ(play.screen().name(), "frmSearchGames");
}

TEST_F(GameList, FailsStepByStepWithoutItsSearch) {
    const Expected notSet = BrowsePlay::failure("frmGameList, Form Load", error::kObjectNotSet);
    play.handOverTo("frmGameList", {notSet, found(1)});  // those of the control's own source
    EXPECT_EQ(play.grid().rowCount(), 1);
}

TEST_F(GameList, LeavesLikeTheEventList) {
    openList();
    play.click("cmdPrevious", {{"Return - Previous Screen", Answer::No, "Return to previous screen?"}});
    play.close({{"Return - Previous Screen", Answer::No}});
    play.click("cmdMain", {{"Return - Main Menu", Answer::No, "Return to main menu?"}});
    for (const MessageBox& box : play.display.boxes())
        EXPECT_EQ(box.icon, Icon::None) << box.title;
    play.click("cmdExit", {{"Confirm - Exit", Answer::No}});
    play.press("F1");
    EXPECT_EQ(play.lastEvent(), "help 0");
    play.click("mnuAbout");
    play.click("cmdAboutOK");
    play.click("mnuPrevious", {{"Return - Previous Screen", Answer::Yes}});
    EXPECT_EQ(play.screen().name(), "frmSearchGames");
    play.click("cmdSearch", {found(1)});
    play.click("mnuMain", {{"Return - Main Menu", Answer::Yes}});
    EXPECT_EQ(play.screen().name(), "frmMain");
    EXPECT_EQ(play.program().screens.loaded().size(), 1U);
}

}  // namespace

}  // namespace tallybrook::test
