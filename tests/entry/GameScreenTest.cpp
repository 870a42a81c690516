#include "store/file/Connection.h"
#include "support/Play.h"

namespace tallybrook::test {

namespace {

class GameScreen : public testing::Test {
protected:
    /// The game screen for an event of so many games, `stored` of them stored as score only.
    void openGames(int games, int stored, Int16 mode = kAdd) {
        play.insertEvent(games);
        for (int game = 1; game <= stored; ++game)
            play.insertGame(game, "N", 100 + game);
        play.session().gMode = mode;
        play.load("frmGame");
    }
    std::vector<std::string> games() {
        return play.rows("tblGameInfo", {"fldGameNum", "fldStartLane", "fldLanePair", "fldGameScore",
                                         "fldScoreType", "fldFrmsRecorded", "fldHHRecordID", "fldBowlHand"});
    }
    Play play;
};

TEST_F(GameScreen, AddsTheFirstGameOfAnEvent) {
    openGames(2, 0, kEdit);
    EXPECT_EQ(play.session().gMode, kAdd);
    EXPECT_EQ(play.focus(), "txtStartLane");
    EXPECT_EQ(play.text("txtEventName"), "Thursday League");
    EXPECT_EQ(play.text("txtDateBowled"), "11/12/2026");
    EXPECT_EQ(play.text("txtGameNum"), "1 of 2");
    EXPECT_EQ(play.text("txtGameScore"), "0");
    EXPECT_TRUE(play.value("optAltLanes(0)"));
    EXPECT_TRUE(play.value("optScType(0)"));
    EXPECT_FALSE(play.enabled("cmdPrevGame"));
    EXPECT_FALSE(play.enabled("mnuPrevGame"));
    play.type("txtStartLane", "6");
    play.type("txtGameScore", "187");
    play.type("txtLaneCond", "dry");
    play.click("optScType(2)");
    play.click("cmdNextGame");
    EXPECT_EQ(games(), std::vector<std::string>{"1|6|5-6|187|P|0|NONE|N"});
    EXPECT_EQ(play.rows("tblGameInfo", {"fldLeftLane", "fldRightLane", "fldLaneCond"}),
              std::vector<std::string>{"5|6|dry"});
    EXPECT_EQ(play.text("txtGameNum"), "2 of 2");
    EXPECT_EQ(play.text("txtStartLane"), "");
}

TEST_F(GameScreen, CountsFromOneWhateverGameWasTheLastElsewhere) {
    play.session().gGameNum = 7;
    openGames(2, 0, kEdit);
    EXPECT_EQ(play.text("txtGameNum"), "1 of 2");
    EXPECT_EQ(play.session().gGameNum, Int16(1));
}

TEST_F(GameScreen, BeginsAGameOfWhichNoFrameIsRecorded) {
    play.session().gFrmsRecorded = 10;
    openGames(2, 0);
    EXPECT_EQ(play.session().gFrmsRecorded, Int16(0));
}

TEST_F(GameScreen, PairsTheLanes) {
    openGames(1, 0);
    play.type("txtStartLane", "5");
    play.click("cmdUpdFrame", {{"Update Frames", Answer::Yes, "Update frames for this game?"}});
    EXPECT_EQ(play.rows("tblGameInfo", {"fldStartLane", "fldLeftLane", "fldRightLane", "fldLanePair"}),
              std::vector<std::string>{"5|5|6|5-6"});
    EXPECT_EQ(play.screen().name(), "frmFrame");
}

TEST_F(GameScreen, HandsOverToTheFrames) {
    openGames(1, 0);
    play.type("txtStartLane", "5");
    play.display.forgetEvents();
    play.click("cmdUpdFrame", {{"Update Frames", Answer::Yes}});
    EXPECT_EQ(play.display.events(),
              (std::vector<std::string>{"hide frmGame", "load frmFrame", "show frmFrame"}));
}

TEST_F(GameScreen, SavesOnTheWayToTheFramesOnceThatIsAnswered) {
    openGames(1, 0);
    play.type("txtStartLane", "5");
    play.click("cmdUpdFrame", {{"Update Frames", Answer::No}});
    EXPECT_TRUE(games().empty());
    EXPECT_EQ(play.screen().name(), "frmGame");
    play.click("cmdUpdFrame", {{"Update Frames", Answer::Yes, "", [&] { EXPECT_TRUE(games().empty()); }}});
    EXPECT_EQ(games(), std::vector<std::string>{"1|5|5-6|0|P|0|NONE|N"});
}

TEST_F(GameScreen, TellsOfABadLaneBeforeItHandsOver) {
    openGames(1, 1, kEdit);
    play.type("txtStartLane", "0");
    play.display.forgetEvents();
    std::vector<std::string> before{"none"};
    Expected badLane{"Invalid Start Lane"};
    badLane.meanwhile = [&] { before = play.display.events(); };
    play.click("cmdUpdFrame", {{"Update Frames", Answer::Yes}, badLane});
    EXPECT_TRUE(before.empty());
    EXPECT_EQ(play.screen().name(), "frmFrame");
}

TEST_F(GameScreen, IsNotSavedWhereItCannotBeStored) {
    openGames(1, 1, kEdit);
    play.click("cmdNextGame", {{"Game Input"}});
    EXPECT_EQ(play.display.saves(), 1);
    play.program().store().connection().database().exec(
        "CREATE TRIGGER refusal BEFORE UPDATE ON tblGameInfo BEGIN SELECT RAISE(ABORT, 'full'); END");
    play.type("txtGameScore", "187");
    play.click("cmdMain", {{"Return to Main", Answer::Yes}, {"Database Error"}});
    EXPECT_EQ(play.display.saves(), 1);
    EXPECT_EQ(play.rows("tblGameInfo", {"fldGameScore"}), std::vector<std::string>{"101"});
}

TEST_F(GameScreen, DoesNotStoreAGameWithABadLane) {
    openGames(1, 0);
    const Expected badLane{"Invalid Start Lane", Answer::OK,
                           "Invalid starting lane. Starting lane must be 1 or greater."};
    for (const char* lane : {"", "0", "-3", "left", "0.9"}) {
        play.type("txtStartLane", lane);
        play.click("txtComment");
        play.click("mnuMain", {{"Return to Main", Answer::No}});
        play.click("mnuReset", {{"Reset Form", Answer::No}});
        play.run([&] { play.control("mnuNextGame").click(); },
                 {badLane, {"Game Information", Answer::Yes}});  // nothing to add to
        EXPECT_EQ(play.display.boxes()[play.display.boxes().size() - 2].icon, Icon::Critical);
        EXPECT_EQ(play.focus(), "txtStartLane");
        play.session().gMode = kAdd;
    }
    play.click("cmdPrevious", {{"Previous Screen", Answer::Yes, "Return to the previous screen?"}, badLane});
    EXPECT_TRUE(games().empty());
    EXPECT_EQ(play.screen().name(), "frmMain");
}

TEST_F(GameScreen, ReturnsToABadLaneBehindTheBox) {
    openGames(1, 1, kEdit);
    play.type("txtStartLane", "0");
    std::string before;
    Expected badLane{"Invalid Start Lane"};
    badLane.meanwhile = [&] { before = play.focus(); };
    play.click("cmdNextGame", {badLane, {"Game Input"}});
    EXPECT_EQ(before, "cmdNextGame");
    EXPECT_EQ(play.focus(), "txtStartLane");
}

TEST_F(GameScreen, ShowsTheOverflowOfALaneOutOfRange) {
    openGames(1, 0);
    play.type("txtStartLane", "40000");
    play.click("cmdMain", {{"Return to Main", Answer::Yes}, {"Database Error", Answer::OK}});
    EXPECT_TRUE(play.display.boxes().back().text.find("Module: Game Information, Update_Game.") !=
                std::string::npos);
    EXPECT_TRUE(games().empty());
}

TEST_F(GameScreen, OffersToEditWhenAllGamesAreAdded) {
    openGames(1, 0);
    play.type("txtStartLane", "1");
    const Expected all{"Game Information", Answer::Yes,
                       "All games for this event have been added.\r\nDo you wish to edit these games?"};
    play.click("cmdNextGame", {all});
    EXPECT_EQ(play.session().gMode, kEdit);
    EXPECT_TRUE(play.enabled("cmdPrevGame"));
    EXPECT_FALSE(play.enabled("mnuPrevGame"));
    EXPECT_EQ(play.text("txtGameNum"), "1 of 1");
}

TEST_F(GameScreen, IsGoneWhenTheUserDeclinesToEdit) {
    play.click("mnuAddFromForm");
    play.type("txtEvent", "Night");
    play.type("txtNumGames", "1");
    play.click("cmdUpdGames", {{"Update Games", Answer::Yes}});
    play.type("txtStartLane", "1");
    play.click("cmdNextGame", {{"Game Information", Answer::No}});
    EXPECT_EQ(play.screen().name(), "frmEvent");
    EXPECT_EQ(play.text("txtEvent"), "Night");
}

TEST_F(GameScreen, TakesFurtherGamesThanPlannedWithoutAQuestion) {
    openGames(1, 2, kAdd);
    play.click("cmdNextGame");
    EXPECT_EQ(play.text("txtGameNum"), "2 of 1");
    EXPECT_EQ(play.session().gGmsRecorded, Int16(3));
}

TEST_F(GameScreen, StaysOnTheLastGame) {
    openGames(3, 3, kEdit);
    EXPECT_EQ(play.text("txtGameNum"), "1 of 3");
    EXPECT_EQ(play.text("txtGameScore"), "101");
    EXPECT_TRUE(play.value("optScType(2)"));
    play.click("cmdNextGame");
    play.click("cmdNextGame");
    EXPECT_EQ(play.text("txtGameNum"), "3 of 3");
    play.click("cmdNextGame", {{"Game Input", Answer::OK, "This is the last game in this record."}});
    EXPECT_EQ(play.display.boxes().back().icon, Icon::None);
    EXPECT_EQ(play.text("txtGameNum"), "3 of 3");
    EXPECT_EQ(play.text("txtGameScore"), "103");
}

TEST_F(GameScreen, StandsPastTheLastGameUntilItsBoxIsAnswered) {
    openGames(1, 1, kEdit);
    std::string before = "none";
    Expected last{"Game Input"};
    last.meanwhile = [&] { before = play.text("txtGameScore"); };
    play.click("cmdNextGame", {last});
    EXPECT_EQ(before, "");
    EXPECT_EQ(play.text("txtGameScore"), "101");
}

TEST_F(GameScreen, OffersAMissingGame) {
    openGames(3, 2, kEdit);
    play.click("cmdNextGame");
    const std::string words =
        "There are less than 3 games for this event.\r\nDo you want to add another game?";
    play.click("cmdNextGame", {{"Game Input", Answer::Yes, words}});
    EXPECT_EQ(play.text("txtGameNum"), "3 of 3");
    EXPECT_EQ(play.text("txtStartLane"), "");
    EXPECT_EQ(play.session().gMode, kAdd);
}

TEST_F(GameScreen, ShowsNothingPastTheLastGame) {
    openGames(3, 2, kEdit);
    play.click("cmdNextGame");
    play.click("cmdNextGame", {{"Game Input", Answer::No}});
    EXPECT_EQ(play.text("txtGameScore"), "");
    EXPECT_EQ(play.text("txtStartLane"), "");
    EXPECT_EQ(play.session().gMode, kEdit);
    EXPECT_EQ(play.display.retries(), 0);
}

TEST_F(GameScreen, StaysOnTheFirstGame) {
    openGames(3, 2, kEdit);
    play.click("cmdNextGame");
    play.click("cmdPrevGame");
    EXPECT_EQ(play.text("txtGameNum"), "1 of 3");
    play.click("cmdPrevGame", {{"First Game", Answer::OK, "This is the first game in the record."}});
    EXPECT_EQ(play.display.boxes().back().icon, Icon::None);
    EXPECT_EQ(play.text("txtGameNum"), "1 of 3");
}

TEST_F(GameScreen, StandsBeforeTheFirstGameUntilItsBoxIsAnswered) {
    openGames(2, 2, kEdit);
    std::string before = "none";
    Expected first{"First Game"};
    first.meanwhile = [&] { before = play.text("txtGameScore"); };
    play.click("cmdPrevGame", {first});
    EXPECT_EQ(before, "");
    EXPECT_EQ(play.text("txtGameScore"), "101");
}

TEST_F(GameScreen, SavesTheGameThatPreviousGameLeaves) {
    openGames(2, 2, kEdit);
    play.click("cmdNextGame");
    play.type("txtGameScore", "187");
    play.click("cmdPrevGame");
    EXPECT_EQ(play.rows("tblGameInfo", {"fldGameScore"}), (std::vector<std::string>{"101", "187"}));
}

TEST_F(GameScreen, WalksTheGamesByTheirNumbers) {
    play.insertEvent(3);
    for (const int game : {3, 1, 2})
        play.insertGame(game, "N", 100 + game);
    play.session().gMode = kEdit;
    play.load("frmGame");
    EXPECT_EQ(play.text("txtGameNum"), "1 of 3");
    play.click("cmdNextGame");
    EXPECT_EQ(play.text("txtGameNum"), "2 of 3");
    play.click("cmdNextGame");
    EXPECT_EQ(play.text("txtGameNum"), "3 of 3");
}

TEST_F(GameScreen, CountsANewGameAgainOnEachReset) {
    openGames(3, 1, kAdd);
    play.click("cmdNextGame");
    EXPECT_EQ(play.text("txtGameNum"), "2 of 3");
    const std::string words = "This will cancel any changes you have made to the current game.\r\nContinue?";
    play.click("cmdReset", {{"Reset Form", Answer::No, words}});
    EXPECT_EQ(play.display.boxes().back().defaultAnswer(), Answer::No);
    play.click("cmdReset", {{"Reset Form", Answer::Yes, words}});
    EXPECT_EQ(play.text("txtGameNum"), "3 of 3");
    EXPECT_EQ(play.text("txtEventName"), "");
}

TEST_F(GameScreen, StoresNothingOfAGameThatWasReset) {
    openGames(3, 0);
    play.type("txtStartLane", "5");
    play.type("txtGameScore", "187");
    play.click("cmdReset", {{"Reset Form", Answer::Yes}});
    play.type("txtStartLane", "9");
    play.click("cmdMain", {{"Return to Main", Answer::Yes}});
    EXPECT_EQ(games(), std::vector<std::string>{"2|9|9-10|0|P|0|NONE|N"});
}

TEST_F(GameScreen, AddsNoRowForAGameThatWasResetWhereAllAreAdded) {
    openGames(2, 1);
    play.click("cmdNextGame");
    play.click("cmdReset", {{"Reset Form", Answer::Yes}, {"Game Information", Answer::Yes}});
    EXPECT_EQ(play.text("txtGameNum"), "101");  // what is bound to it is the score
    play.type("txtStartLane", "5");
    play.click("cmdMain", {{"Return to Main", Answer::Yes}});
    EXPECT_EQ(games(), std::vector<std::string>{"2|5|5-6|101|N|0|NONE|N"});
}

TEST_F(GameScreen, ReloadsAStoredGameOnReset) {
    openGames(3, 2, kEdit);
    play.type("txtStartLane", "99");
    play.type("txtLaneCond", "wet");
    play.click("cmdReset", {{"Reset Form", Answer::Yes}});
    EXPECT_EQ(play.text("txtStartLane"), "13");
    EXPECT_EQ(play.text("txtLaneCond"), "");
    EXPECT_EQ(play.text("txtGameScore"), "101");  // not among what the reset clears
}

TEST_F(GameScreen, TakesTheTrueCountOfFrames) {
    play.insertEvent(3);
    play.insertGame(1, "L");
    play.insertFrame(1, "X");
    play.insertFrame(2, "9/");
    play.insertGame(2, "N");
    play.session().gMode = kEdit;
    play.load("frmGame");
    EXPECT_TRUE(play.value("optScType(1)"));
    EXPECT_TRUE(play.value("optAltLanes(0)"));
    EXPECT_TRUE(play.session().gAltLanes);
    play.click("cmdNextGame");
    EXPECT_EQ(games()[0], "1|13|13-14|0|L|2|NONE|N");
    play.click("cmdMain", {{"Return to Main", Answer::Yes}});
    EXPECT_EQ(games()[1], "2|13|13-14|0|N|0|NONE|N");
}

TEST_F(GameScreen, CountsTheFramesThatAreStoredWhateverTypeIsClicked) {
    play.insertEvent(1);
    play.insertGame(1, "L");
    play.insertFrame(1, "X");
    play.insertFrame(2, "9/");
    play.session().gMode = kEdit;
    play.load("frmGame");
    play.click("optScType(2)");
    play.click("cmdMain", {{"Return to Main", Answer::Yes}});
    EXPECT_EQ(games(), std::vector<std::string>{"1|13|13-14|0|L|2|NONE|N"});
}

TEST_F(GameScreen, BeginsANewGameWithoutTheFramesOfTheOneBefore) {
    play.insertEvent(2);
    play.insertGame(1, "L");
    play.insertFrame(1, "X");
    play.insertFrame(2, "9/");
    play.session().gMode = kEdit;
    play.load("frmGame");
    play.click("cmdNextGame", {{"Game Input", Answer::Yes}});
    play.type("txtStartLane", "5");
    play.click("cmdMain", {{"Return to Main", Answer::Yes}});
    EXPECT_EQ(games(), (std::vector<std::string>{"1|13|13-14|0|L|2|NONE|N", "2|5|5-6|0|P|0|NONE|N"}));
}

TEST_F(GameScreen, KnowsAGameThatStayedOnItsLane) {
    play.insertEvent(3);
    play.insertGame(1, "P");
    play.insertFrame(1, "X", "X");
    play.insertFrame(3, "X", "X");
    play.session().gMode = kEdit;
    play.load("frmGame");
    EXPECT_FALSE(play.session().gAltLanes);
    EXPECT_TRUE(play.value("optAltLanes(1)"));
    play.click("optAltLanes(0)");
    EXPECT_TRUE(play.session().gAltLanes);
    play.click("optAltLanes(1)");
    EXPECT_FALSE(play.session().gAltLanes);
}

TEST_F(GameScreen, KnowsOfEachGameByItselfWhetherItStayedOnItsLane) {
    play.insertEvent(2);
    play.insertGame(1, "L");
    play.insertFrame(1, "X");
    play.insertFrame(2, "X");
    play.insertGame(2, "L");
    for (const int frame : {1, 3})
        play.insertFrame(frame, "X", "", "", "", 2);
    play.session().gMode = kEdit;
    play.load("frmGame");
    EXPECT_TRUE(play.value("optAltLanes(0)"));
    play.click("cmdNextGame");
    EXPECT_FALSE(play.session().gAltLanes);
    EXPECT_TRUE(play.value("optAltLanes(1)"));
}

TEST_F(GameScreen, KnowsTheLanesByTheFirstTwoFramesWhateverTheirRows) {
    play.insertEvent(3);
    play.insertGame(1, "L");
    for (const int frame : {1, 3, 2})
        play.insertFrame(frame, "X");
    play.session().gMode = kEdit;
    play.load("frmGame");
    EXPECT_TRUE(play.session().gAltLanes);
}

TEST_F(GameScreen, RetriesWithoutEndOnAGameOfFewerThanTwoFrames) {
    play.insertEvent(3);
    play.insertGame(1, "P");
    play.insertFrame(1, "X", "X");
    play.session().gMode = kEdit;
    play.load("frmGame");
    EXPECT_EQ(play.display.retrying_, "Game Information, Load_Game.");
    EXPECT_FALSE(play.program().screens.find("frmGame")->isVisible());
}

TEST_F(GameScreen, RetriesWithoutEndPastTheLastGame) {
    openGames(3, 1, kEdit);
    play.click("cmdNextGame", {{"Game Input", Answer::No}});
    play.click("cmdNextGame", {{"Invalid Start Lane", Answer::OK}});
    EXPECT_EQ(play.display.retrying_, "Game Information, cmdNextGame.");
    play.click("cmdReset", {{"Reset Form", Answer::Yes}});
    EXPECT_EQ(play.display.retrying_, "Game Information, Load_Game.");
}

TEST_F(GameScreen, ShowsWhereItCannotRead) {
    play.insert("tblEventInfo", {{"fldEventName", "Odd"}, {"fldNumGames", Null{}}});
    play.insert("tblGameInfo", {{"fldSessionNum", std::int64_t{1}},
                                {"fldGameNum", std::int64_t{1}},
                                {"fldStartLane", Null{}},
                                {"fldLaneCond", "dry"},
                                {"fldScoreType", "N"}});
    play.session().gSessionNum = 1;
    play.load("frmGame", {{"Database Error", Answer::OK}, {"Database Error", Answer::OK}});
    const std::string words = "Error Number: 94\r\nError: Invalid use of Null\r\nModule: Game Information, ";
    EXPECT_TRUE(play.display.boxes()[0].text.starts_with(words + "Form Load.\r\n"));
    EXPECT_TRUE(play.display.boxes()[1].text.starts_with(words + "Load_Game.\r\n"));
    EXPECT_EQ(play.text("txtLaneCond"), "dry");
}

TEST_F(GameScreen, AsksWhileItLoadsForAnEventOfNoGames) {
    play.insertEvent(0);
    play.display.forgetEvents();
    play.handOverTo("frmGame", {{"Game Information", Answer::No}});
    EXPECT_EQ(play.display.events(),
              (std::vector<std::string>{"hide frmMain", "load frmGame", "unload frmGame", "show frmMain"}));
}

TEST_F(GameScreen, TakesAnyOtherTypeForScoreOnly) {
    for (const Value& type : {Value{""}, Value{Null{}}, Value{"x"}}) {
        Play other;
        other.insertEvent();
        other.insertGame();
        other.run([&] {
            Recordset games(other.program().store());
            games.Open("SELECT * FROM tblGameInfo");
            games["fldScoreType"] = type;
            games.Update();
        });
        other.session().gMode = kEdit;
        other.handOverTo("frmGame");
        EXPECT_TRUE(other.value("optScType(2)"));
        EXPECT_EQ(other.display.retries(), 0);
        EXPECT_EQ(other.screen().name(), "frmGame");
    }
}

TEST_F(GameScreen, ExitsWithItsOwnQuestion) {
    openGames(2, 2, kEdit);
    play.type("txtGameScore", "234");
    play.click("cmdExit", {{"Exit Application", Answer::No, "Exit Tallybrook?"}});
    EXPECT_EQ(play.display.boxes().back().icon, Icon::Question);
    EXPECT_EQ(play.display.boxes().back().defaultAnswer(), Answer::Yes);
    EXPECT_EQ(play.rows("tblGameInfo", {"fldGameScore"})[0], "101");
    play.click("mnuExit", {{"Exit Application", Answer::Yes}});
    EXPECT_TRUE(play.program().hasEnded());
    EXPECT_EQ(play.rows("tblGameInfo", {"fldGameScore"})[0], "234");
}

TEST_F(GameScreen, HelpsAndTellsAboutItself) {
    openGames(2, 2, kEdit);
    play.display.forgetEvents();
    play.press("F1");
    EXPECT_EQ(play.display.events(), std::vector<std::string>{"help 0"});
    play.click("mnuAbout");
    EXPECT_EQ(play.screen().name(), "frmAbout");
    play.click("cmdAboutOK");
    EXPECT_EQ(play.screen().name(), "frmGame");
}

}  // namespace

}  // namespace tallybrook::test
