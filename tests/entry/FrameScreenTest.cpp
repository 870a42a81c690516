#include "entry/FrameFailures.h"
#include "shell/TBK_Globals.h"
#include "store/file/Connection.h"
#include "support/Play.h"

namespace tallybrook::test {

namespace {

const std::string kFaultWords =
    "Line score values were incomplete.\r\nAcceptable values are 0 - 9, X and /. Examples: \r\n9/, X, 80, 8/ "
    "are "
    "acceptable. Values such as /9, 9X are not.";
const Expected kFault{"Invalid Line Score", Answer::OK, kFaultWords};
const Expected kAllAdded{
    "All Frames Added", Answer::No,
    "All frames for this game have been added.\r\nClick \"OK\" to return to the game screen."};
const Expected kLastFrame{"Frame Input", Answer::OK, "This is the last frame for this game."};
const Expected kAddAnother{
    "Frame Input", Answer::Yes,
    "There are less than 10 frames for this game.\r\nDo you want to add another frame?"};
const Expected kNoRow{
    "Database Error", Answer::Cancel,
    "New record could not be added or updated.\r\nThis could be due to timing. Click Retry to attempt to add "
    "the "
    "record again.\r\nClick Cancel to return to the previous screen.\r\nDebug Information: Module - Frame "
    "Information, Save_Frame"};

Expected with(Expected box, Answer answer) {
    box.answer = answer;
    return box;
}

class FrameScreen : public testing::Test {
protected:
    /// A game of that type with the frames given as line scores (in pinfall mode strikes as such, all else as
    /// pin 10 left and the spare).
    void openGame(const std::string& type, const std::vector<std::string>& frames, int score = 0) {
        play.insertEvent();
        play.insertGame(1, type, score);
        int number = 0;
        for (const std::string& cell : frames) {
            ++number;
            if (type != "P")
                play.insertFrame(number, cell);
            else if (cell == "X")
                play.insertFrame(number, cell, "X");
            else
                play.insertFrame(number, cell, "10", "/");
        }
        play.session().gAltLanes = true;
        play.handOverTo("frmFrame");
    }
    /// The same behind the game screen, as the bowler comes to it.
    void openThroughGame(const std::vector<std::string>& frames, int score, int gamesOfEvent = 1) {
        play.insertEvent(gamesOfEvent);
        play.insertGame(1, "L", score);
        for (std::size_t i = 0; i < frames.size(); ++i)
            play.insertFrame(static_cast<int>(i + 1), frames[i]);
        play.session().gMode = kEdit;
        play.load("frmGame");
        play.click("cmdUpdFrame", {{"Update Frames", Answer::Yes}});
        ASSERT_EQ(play.screen().name(), "frmFrame");
    }
    std::string cell(int frame) { return play.text("txtCount(" + std::to_string(frame) + ")"); }
    bool cellEnabled(int frame) { return play.enabled("txtCount(" + std::to_string(frame) + ")"); }
    void strike(const std::vector<Expected>& boxes = {}) {
        play.click("optFirstYes");
        play.click("cmdNextFrame", boxes);
    }
    void walkToTheEnd(const std::vector<Expected>& boxes) {
        for (int frame = 1; frame < 10; ++frame)
            play.click("cmdNextFrame");
        play.click("cmdNextFrame", boxes);
    }
    std::vector<std::string> frames(const std::vector<std::string>& fields) {
        return play.rows("tblFrameInfo", fields);
    }
    Play play;
};

const std::vector<std::string> kTenStrikes{"X", "X", "X", "X", "X", "X", "X", "X", "X", "XXX"};

TEST_F(FrameScreen, OpensAGameWithoutFramesToAdd) {
    play.session().gMode = kEdit;
    openGame("P", {});
    EXPECT_EQ(play.session().gMode, kAdd);
    EXPECT_EQ(play.text("txtFrameNum"), "1");
    EXPECT_EQ(play.text("txtLaneNum"), "13");
    EXPECT_EQ(play.text("txtLanePair"), "13-14");
    EXPECT_EQ(play.text("txtGameNum") + " of " + play.text("txtNumGames"), "1 of 3");
    EXPECT_FALSE(play.enabled("cmdPrevFrame"));
    EXPECT_FALSE(play.enabled("mnuPrevFrame"));
    EXPECT_EQ(play.focus(), "txtLaneNum");
    EXPECT_EQ(play.session().gStartLane, Int16(13));
    EXPECT_TRUE(play.enabled("txtScore(1)"));
    EXPECT_TRUE(play.enabled("txtScore(2)"));
    EXPECT_FALSE(play.enabled("txtScore(3)"));
    EXPECT_FALSE(play.enabled("txtTotScore"));
}

TEST_F(FrameScreen, BeginsOnTheRightLaneOfThePairWhereTheGameDoes) {
    play.insertEvent(1);
    play.load("frmGame");
    play.type("txtStartLane", "6");
    play.click("cmdUpdFrame", {{"Update Frames", Answer::Yes}});
    EXPECT_EQ(play.text("txtLanePair"), "5-6");
    EXPECT_EQ(play.text("txtLaneNum"), "6");
}

TEST_F(FrameScreen, WalksStoredFramesAndAddsFromThere) {
    openGame("P", {"X", "9/", "X", "9/"});
    EXPECT_EQ(play.session().gMode, kEdit);
    EXPECT_EQ(play.text("txtFrameNum"), "1");
    EXPECT_TRUE(play.enabled("cmdPrevFrame"));
    for (int frame = 2; frame <= 4; ++frame) {
        play.click("cmdNextFrame");
        EXPECT_EQ(play.text("txtFrameNum"), std::to_string(frame));
    }
    play.click("cmdNextFrame", {kAddAnother});
    EXPECT_EQ(play.session().gMode, kAdd);
    EXPECT_EQ(play.text("txtFrameNum"), "5");
    EXPECT_EQ(play.text("txtLaneNum"), "13");  // frame 4 was on 14
    EXPECT_FALSE(play.enabled("cmdPrevFrame"));
    strike();
    EXPECT_EQ(frames({"fldFrameNum", "fldLaneBowled"}).back(), "5|13");
}

TEST_F(FrameScreen, WalksTheFramesByTheirNumbers) {
    play.insertEvent();
    play.insertGame(1, "L");
    for (const int frame : {2, 3, 1})
        play.insertFrame(frame, "8" + std::to_string(frame));
    play.handOverTo("frmFrame");
    EXPECT_EQ(play.text("txtFrameNum"), "1");
    play.click("cmdNextFrame");
    EXPECT_EQ(play.text("txtFrameNum"), "2");
}

TEST_F(FrameScreen, AlternatesTheLanes) {
    openGame("P", {});
    std::vector<std::string> lanes;
    for (int frame = 1; frame <= 9; ++frame) {
        lanes.push_back(play.text("txtLaneNum"));
        strike();
    }
    EXPECT_EQ(lanes, (std::vector<std::string>{"13", "14", "13", "14", "13", "14", "13", "14", "13"}));
    EXPECT_EQ(play.text("txtLaneNum"), "14");
}

TEST_F(FrameScreen, KeepsTheNextLaneAfterALaneThatIsNotOfThePair) {
    play.insertEvent();
    play.insertGame();
    for (const int lane : {13, 20}) {
        play.insert("tblFrameInfo", {{"fldSessionNum", std::int64_t{1}},
                                     {"fldGameNum", std::int64_t{1}},
                                     {"fldFrameNum", std::int64_t{lane == 13 ? 1 : 2}},
                                     {"fldLaneBowled", std::int64_t{lane}},
                                     {"fldFirstBallRes", "X"}});
    }
    play.session().gAltLanes = true;
    play.load("frmFrame");
    play.click("mnuNextFrame");
    EXPECT_EQ(play.text("txtLaneNum"), "20");
    play.click("mnuNextFrame", {kAddAnother});
    EXPECT_EQ(play.text("txtLaneNum"), "14");  // as worked out after frame 1
}

TEST_F(FrameScreen, ShowsWhereItCannotRead) {
    play.insertEvent();
    play.insert("tblGameInfo", {{"fldSessionNum", std::int64_t{1}},
                                {"fldGameNum", std::int64_t{1}},
                                {"fldLanePair", "13-14"},
                                {"fldLeftLane", Null{}}});
    play.session().gGameNum = 1;
    play.load("frmFrame", {{"Database Error", Answer::OK}});
    EXPECT_TRUE(play.display.boxes().back().text.starts_with(
        "Error Number: 94\r\nError: Invalid use of Null\r\nModule: Frame Information, Form Load.\r\n"));
    EXPECT_EQ(play.text("txtFrameNum"), "1");
}

TEST_F(FrameScreen, StaysOnTheStartingLaneWithoutAlternation) {
    openGame("P", {});
    play.session().gAltLanes = false;
    play.type("txtLaneNum", "14");
    strike();
    EXPECT_EQ(play.text("txtLaneNum"), "13");
}

TEST_F(FrameScreen, RefusesALaneThatIsNotOfThePair) {
    openGame("P", {});
    const Expected box{"Tallybrook", Answer::OK, "Invalid lane number.\r\nPlease enter either 13 or 14."};
    for (const char* lane : {"15", "", "13.5", "-13"}) {
        play.type("txtLaneNum", lane);
        EXPECT_EQ(play.click("cmdExit", {box}), Arrival::Kept) << lane;
        EXPECT_EQ(play.focus(), "txtLaneNum");
    }
    play.type("txtLaneNum", " 14th");
    EXPECT_EQ(play.click("txtComment"), Arrival::Arrived);
}

TEST_F(FrameScreen, CarriesBallAndPositionFromFrameToFrame) {
    openGame("P", {});
    play.type("txtBallUsed", "Blue");
    play.type("txtFootPos", "22");
    play.type("txtLaneTgt", "12");
    play.type("txtComment", "first");
    strike();
    EXPECT_EQ(play.text("txtBallUsed") + play.text("txtFootPos") + play.text("txtLaneTgt"), "Blue2212");
    EXPECT_EQ(play.text("txtComment"), "");
    EXPECT_EQ(frames({"fldFrameNum", "fldGameNum", "fldSessionNum", "fldLaneBowled", "fldBallUsed",
                      "fldFootPos", "fldLaneTgt", "fldFirstBallRes", "fldSecondBallRes", "fldFillBallRes",
                      "fldComment", "fldLineScore", "fldHHRecordID"}),
              std::vector<std::string>{"1|1|1|13|Blue|22|12|X|||first|X|NONE"});
    EXPECT_EQ(play.session().gFrameKey, Int32(1));
    EXPECT_EQ(play.session().gFrmsRecorded, Int16(1));
}

TEST_F(FrameScreen, CarriesNothingOverFromAFrameThatWasOnlyLookedAt) {
    play.insertEvent();
    play.insertGame(1, "L");
    play.insert("tblFrameInfo", {{"fldSessionNum", std::int64_t{1}},
                                 {"fldGameNum", std::int64_t{1}},
                                 {"fldFrameNum", std::int64_t{1}},
                                 {"fldLaneBowled", std::int64_t{13}},
                                 {"fldBallUsed", "Blue"},
                                 {"fldLineScore", "X"}});
    play.handOverTo("frmFrame");
    EXPECT_EQ(play.text("txtBallUsed"), "Blue");
    play.click("cmdNextFrame", {kAddAnother});
    EXPECT_EQ(play.text("txtBallUsed"), "");
}

TEST_F(FrameScreen, RefusesAnIncompleteFrame) {
    openGame("P", {});
    play.click("cmdNextFrame", {kFault});
    EXPECT_EQ(play.focus(), "cmdResetPinfall");
    play.click("cmdPrevious", {kFault});
    play.click("optFirstNo");
    play.click("cmdFirstDone");
    EXPECT_EQ(cell(1), "10");
    play.click("cmdNextFrame", {kFault});
    play.click("optSecondNo");
    play.click("cmdSecondDone");
    EXPECT_EQ(cell(1), "109");  // counted from the "1"
    EXPECT_TRUE(frames({"fldFrameNum"}).empty());
}

TEST_F(FrameScreen, RefusesASecondBallDoneWithoutATick) {
    openGame("P", {});
    for (const char* name : {"optFirstNo", "chkFirstPinfall(3)", "chkFirstPinfall(6)", "chkFirstPinfall(10)",
                             "cmdFirstDone", "optSecondNo", "cmdSecondDone"})
        play.click(name);
    EXPECT_EQ(cell(1), "73");
    play.click("cmdNextFrame", {kFault});
}

TEST_F(FrameScreen, CountsAGutterBall) {
    openGame("P", {});
    play.click("optFirstNo");
    for (int pin = 1; pin <= 10; ++pin)
        play.click("chkFirstPinfall(" + std::to_string(pin) + ")");
    play.click("cmdFirstDone");
    EXPECT_EQ(cell(1), "0");
    play.click("optSecondNo");
    play.click("chkSecondPinfall(1)");
    play.click("cmdSecondDone");
    play.click("cmdNextFrame");
    EXPECT_EQ(frames({"fldFirstBallRes", "fldSecondBallRes", "fldLineScore"}),
              std::vector<std::string>{"1-2-3-4-5-6-7-8-9-10|1|09"});
}

TEST_F(FrameScreen, LetsTheTenthFramePassWithoutAFillBallAfterAnOpenSecond) {
    openGame("P", {"X", "X", "X", "X", "X", "X", "X", "X", "X"}, 267);
    for (int frame = 1; frame < 9; ++frame)
        play.click("cmdNextFrame");
    play.click("cmdNextFrame", {kAddAnother});
    play.click("optFirstYes");
    play.click("optSecondNo");
    for (int pin : {3, 6, 10})
        play.click("chkSecondPinfall(" + std::to_string(pin) + ")");
    play.click("cmdSecondDone");
    EXPECT_EQ(cell(10), "X7");
    play.click("cmdNextFrame", {kAllAdded, {"Score Mismatch", Answer::No}});
    EXPECT_EQ(frames({"fldLineScore", "fldFillBallRes"}).back(), "X7|");
}

TEST_F(FrameScreen, ShowsALockedFrameWithItsPins) {
    play.insertEvent();
    play.insertGame();
    play.insertFrame(1, "72", "3-6-10", "10");
    play.insertFrame(2, "9/", "10", "/");
    play.load("frmFrame");
    EXPECT_TRUE(play.value("optFirstNo"));
    for (int pin = 1; pin <= 10; ++pin) {
        const std::string number = "(" + std::to_string(pin) + ")";
        EXPECT_EQ(play.value("chkFirstPinfall" + number), pin == 3 || pin == 6 || pin == 10);
        EXPECT_EQ(play.value("chkSecondPinfall" + number), pin == 10);
        EXPECT_FALSE(play.enabled("chkFirstPinfall" + number));
    }
    EXPECT_FALSE(play.enabled("optFirstYes"));
    EXPECT_TRUE(play.enabled("cmdFirstDone"));  // what the load has clicked is not locked again
    EXPECT_TRUE(play.enabled("cmdSecondDone"));
    EXPECT_FALSE(play.enabled("cmdFillDone"));
    EXPECT_EQ(cell(1), "72");
    play.click("cmdNextFrame");
    EXPECT_TRUE(play.value("optSecondYes"));
    EXPECT_EQ(cell(2), "9/");
    EXPECT_EQ(play.focus(), "txtComment");  // as by the spare that is shown
}

TEST_F(FrameScreen, GoesOnBehindTheBoxOnABadPinString) {
    play.insertEvent();
    play.insertGame();
    play.insertFrame(1, "7", "3-11", "3");
    play.load("frmFrame", {{"Database Error", Answer::OK}});
    EXPECT_TRUE(play.display.boxes().back().text.starts_with(
        "Error Number: 9\r\nError: Subscript out of range\r\nModule: Frame Information, Load_Frame.\r\n"));
    EXPECT_TRUE(play.value("optFirstNo"));
    EXPECT_TRUE(play.value("chkFirstPinfall(3)"));
    EXPECT_TRUE(play.value("chkSecondPinfall(3)"));
    EXPECT_EQ(cell(1), "7");
}

TEST_F(FrameScreen, RefusesAStoredFrameUntilItIsEnteredAgain) {
    play.insertEvent();
    play.insertGame();
    play.insertFrame(1, "X", "X");
    play.insertFrame(2, "", "");
    play.load("frmFrame");
    play.click("cmdNextFrame");
    play.click("cmdNextFrame", {kFault});
    play.click("cmdPrevFrame");
    EXPECT_EQ(play.text("txtFrameNum"), "1");
    play.click("cmdNextFrame");
    play.click("cmdResetPinfall", {{"Reset Pinfall", Answer::Yes}});
    strike({kAddAnother});
    EXPECT_EQ(frames({"fldLineScore"})[1], "X");
}

TEST_F(FrameScreen, MakesAnImportedFrameItsOwn) {
    openGame("P", {"X", "9/"});
    EXPECT_EQ(frames({"fldHHRecordID"}), (std::vector<std::string>{"HH1", "HH2"}));
    play.click("cmdNextFrame");
    EXPECT_EQ(frames({"fldHHRecordID"}), (std::vector<std::string>{"NONE", "HH2"}));
}

TEST_F(FrameScreen, StaysOnTheFirstFrame) {
    openGame("L", {"X", "9/", "72"});
    play.click("cmdNextFrame");
    play.click("cmdNextFrame");
    EXPECT_EQ(cell(1) + cell(2) + cell(3), "X9/72");
    play.click("cmdPrevFrame");
    EXPECT_EQ(cell(3), "");
    EXPECT_EQ(cell(2), "9/");
    play.click("cmdPrevFrame");
    play.type("txtCount(1)", "81");
    play.click("cmdPrevFrame", {{"Frame Input", Answer::OK, "This is the first frame in this game."}});
    EXPECT_EQ(cell(1), "81");  // it was saved first
    EXPECT_EQ(frames({"fldLineScore"})[0], "81");
    EXPECT_TRUE(cellEnabled(1));
}

TEST_F(FrameScreen, LocksTheFirstFrameAnewWhereNoneIsBeforeIt) {
    openGame("P", {"X", "X"});
    play.click("cmdResetPinfall", {{"Reset Pinfall", Answer::Yes}});
    play.click("optFirstYes");
    EXPECT_TRUE(play.enabled("optFirstYes"));
    play.click("cmdPrevFrame", {{"Frame Input"}});
    EXPECT_FALSE(play.enabled("optFirstYes"));
    EXPECT_EQ(cell(1), "X");
}

TEST_F(FrameScreen, StoresABlankFrameOnTheWayToTheMainMenu) {
    openGame("P", {});
    play.display.forgetEvents();
    play.click("cmdRetMain");
    EXPECT_EQ(play.display.events(), (std::vector<std::string>{"unload frmFrame", "unload frmMain",
                                                               "load frmMain", "show frmMain"}));
    EXPECT_EQ(frames({"fldFrameNum", "fldLaneBowled", "fldFirstBallRes", "fldLineScore"}),
              std::vector<std::string>{"1|13||"});
    EXPECT_EQ(play.session().gFrmsRecorded, Int16(1));
}

TEST_F(FrameScreen, SavesBeforeItAsksWhetherToExit) {
    openGame("P", {});
    play.click("optFirstYes");
    play.click("cmdExit", {{"Confirm - Exit", Answer::No}});
    EXPECT_EQ(frames({"fldLineScore"}), std::vector<std::string>{"X"});
    EXPECT_EQ(play.screen().name(), "frmFrame");
    play.click("cmdExit", {{"Confirm - Exit", Answer::Yes}});
    EXPECT_TRUE(play.program().hasEnded());
}

TEST_F(FrameScreen, ResetsTheFormButNotTheCell) {
    openGame("P", {});
    play.click("optFirstNo");
    play.click("chkFirstPinfall(7)");
    play.click("cmdFirstDone");
    play.type("txtBallUsed", "Blue");
    const std::string words =
        "This will reset the form but NOT affect the current record.\r\nDo you want to continue?";
    play.click("cmdReset", {{"Reset Form", Answer::No, words}});
    EXPECT_EQ(play.text("txtBallUsed"), "Blue");
    play.click("cmdReset", {{"Reset Form", Answer::Yes, words}});
    EXPECT_EQ(play.text("txtBallUsed") + play.text("txtLaneNum"), "");
    EXPECT_EQ(cell(1), "9");
    EXPECT_EQ(play.focus(), "txtLaneNum");
    EXPECT_TRUE(play.enabled("optFirstYes"));
    EXPECT_FALSE(play.value("chkFirstPinfall(7)"));
    play.type("txtLaneNum", "13");
    strike();
    EXPECT_EQ(frames({"fldFrameNum", "fldLineScore"}), std::vector<std::string>{"1|X"});  // still the new row
}

TEST_F(FrameScreen, KeepsThePinsTickedWhereTheirResetIsDeclined) {
    openGame("P", {});
    play.click("optFirstNo");
    play.click("chkFirstPinfall(7)");
    play.click("cmdResetPinfall", {{"Reset Pinfall", Answer::No}});
    play.click("cmdFirstDone");
    EXPECT_EQ(cell(1), "9");
}

TEST_F(FrameScreen, KeepsTheOldSecondBallThroughResetPinfall) {
    play.insertEvent();
    play.insertGame();
    play.insertFrame(1, "72", "3-6-10", "10");
    play.insertFrame(2, "X", "X");
    play.load("frmFrame");
    const std::string words = "This will erase the pinfall for this frame.\r\nDo you want to continue?";
    play.click("mnuResetPinfall", {{"Reset Pinfall", Answer::No, words}});
    EXPECT_EQ(cell(1), "72");
    play.click("cmdResetPinfall", {{"Reset Pinfall", Answer::Yes, words}});
    EXPECT_EQ(cell(1), "");
    EXPECT_EQ(play.focus(), "optFirstYes");
    EXPECT_TRUE(play.enabled("optFirstYes"));
    strike();
    EXPECT_EQ(frames({"fldFirstBallRes", "fldSecondBallRes", "fldLineScore"})[0], "X|10|X");
}

TEST_F(FrameScreen, OpensTheHelpOfItsWayOfScoring) {
    openGame("P", {});
    play.display.forgetEvents();
    play.click("cmdPinfallHelp");
    play.session().gScoreType = "L";
    play.click("mnuHelpPinfall");
    play.press("F1");
    EXPECT_EQ(play.display.events(), (std::vector<std::string>{"help 232", "help 233", "help 0"}));
}

// --- Line scores ---

TEST_F(FrameScreen, TakesALineScoreInTheCurrentCellAlone) {
    openGame("L", {});
    EXPECT_TRUE(cellEnabled(1));
    EXPECT_FALSE(cellEnabled(2));
    EXPECT_FALSE(play.enabled("optFirstYes"));
    play.click("cmdNextFrame", {kFault});
    play.click("cmdPrevious", {kFault});
    play.type("txtCount(1)", "x");
    play.click("cmdNextFrame", {kFault});
    EXPECT_EQ(cell(1), "x");
    play.type("txtCount(1)", "X99");
    EXPECT_EQ(cell(1), "X9");
    play.click("cmdNextFrame");
    EXPECT_EQ(cell(1), "X");
    EXPECT_FALSE(cellEnabled(1));
    EXPECT_TRUE(cellEnabled(2));
    EXPECT_EQ(frames({"fldFirstBallRes", "fldSecondBallRes", "fldFillBallRes", "fldLineScore"}),
              std::vector<std::string>{"|||X"});
}

TEST_F(FrameScreen, LeadsFromTheTargetToTheCell) {
    openGame("L", {});
    play.click("txtLaneTgt");
    play.tab();
    EXPECT_EQ(play.focus(), "txtCount(1)");
}

TEST_F(FrameScreen, KeepsTheTabOrderForOtherTypes) {
    for (const char* type : {"N", ""}) {
        Play other;
        other.insertEvent();
        other.insertGame(1, type);
        other.load("frmFrame");
        EXPECT_TRUE(other.enabled("txtCount(1)"));
        other.click("txtLaneTgt");
        other.tab();
        EXPECT_EQ(other.focus(), "txtComment") << type;
    }
}

TEST_F(FrameScreen, StoresAnyCellOnTheWaysThatDoNotCheck) {
    openGame("L", {"9/", "X"});
    play.type("txtCount(1)", "/9");
    play.click("cmdRetMain");
    EXPECT_EQ(frames({"fldLineScore"})[0], "/9");
}

TEST_F(FrameScreen, OpensTheFirstOptionsOnResetInLineScoreMode) {
    openGame("L", {});
    play.click("cmdReset", {{"Reset Form", Answer::Yes}});
    EXPECT_TRUE(play.enabled("optFirstYes"));
    play.type("txtLaneNum", "13");
    play.click("cmdResetPinfall", {{"Reset Pinfall", Answer::Yes}});
    EXPECT_FALSE(play.enabled("optFirstYes"));
    EXPECT_EQ(play.focus(), "txtCount(1)");
}

TEST_F(FrameScreen, TabsThroughItsControlsInOrder) {
    openGame("P", {});
    std::vector<std::string> order{play.focus()};
    for (int i = 0; i < 11; ++i) {
        play.tab();
        order.push_back(play.focus());
    }
    EXPECT_EQ(order, (std::vector<std::string>{"txtLaneNum", "txtBallUsed", "txtFootPos", "txtLaneTgt",
                                               "optFirstYes", "optFirstNo", "txtComment", "cmdNextFrame",
                                               "cmdReset", "cmdPrevious", "cmdRetMain", "cmdExit"}));
}

// --- The score ---

TEST_F(FrameScreen, CalculatesAtTheEndOfTheFrames) {
    openThroughGame(kTenStrikes, 300);
    walkToTheEnd(
        {kLastFrame,
         {"Game Score", Answer::Cancel,
          "Calculated score for this game is 300.\r\nClick \"OK\" to return to the previous screen, click "
          "\"Cancel\" to stay at the frame screen."}});
    EXPECT_EQ(play.screen().name(), "frmFrame");
    EXPECT_EQ(play.text("txtTotScore"), "300");
    for (int frame = 1; frame <= 10; ++frame)
        EXPECT_EQ(play.text("txtScore(" + std::to_string(frame) + ")"), std::to_string(frame * 30));
    for (int frame = 1; frame <= 9; ++frame)
        EXPECT_FALSE(cellEnabled(frame));
    EXPECT_TRUE(cellEnabled(10));
    play.click("cmdNextFrame", {kLastFrame, {"Game Score", Answer::OK}});
    EXPECT_EQ(play.screen().name(), "frmGame");
    EXPECT_EQ(play.text("txtGameScore"), "300");
    EXPECT_EQ(play.session().gScoreFixCount, Int16(0));
}

TEST_F(FrameScreen, HandsAnAcceptedScoreToTheGameScreen) {
    openThroughGame(kTenStrikes, 0);
    const Expected mismatch{"Score Mismatch", Answer::No,
                            "Based on the pinfall you entered, a score of 300 was calculated. This differs "
                            "from the score of 0 that was "
                            "recorded.\r\nTo accept the score of 300 click the \"Yes\" button.\r\nTo keep "
                            "the recorded score of 0 click "
                            "the \"No\"button."};
    walkToTheEnd({kLastFrame, mismatch});
    EXPECT_EQ(play.display.boxes().back().icon, Icon::Warning);
    EXPECT_EQ(play.screen().name(), "frmFrame");
    EXPECT_EQ(play.text("txtTotScore"), "300");
    play.click("cmdNextFrame", {kLastFrame, with(mismatch, Answer::Yes)});
    EXPECT_EQ(play.screen().name(), "frmGame");
    EXPECT_EQ(play.text("txtGameScore"), "300");
    ASSERT_EQ(play.session().gScoreFixCount, Int16(1));
    EXPECT_EQ(play.session().gScoreFixes[0].eventKey, Int32(1));
    EXPECT_EQ(play.session().gScoreFixes[0].score, Int16(300));
    EXPECT_EQ(play.session().gScoreFixes[0].game, Int16(1));
    EXPECT_EQ(play.rows("tblGameInfo", {"fldGameScore"}), std::vector<std::string>{"0"});
    play.click("cmdMain", {{"Return to Main", Answer::Yes}});
    EXPECT_EQ(play.rows("tblGameInfo", {"fldGameScore", "fldFrmsRecorded"}),
              std::vector<std::string>{"300|10"});
}

TEST_F(FrameScreen, ClosesAfterTheTenthFrameWhateverIsAnswered) {
    const std::vector<std::string> nine{"X", "X", "X", "X", "X", "X", "X", "X", "X"};
    struct Case {
        int recorded;
        Expected box;
        std::string shown;
    };
    for (const Case& one :
         {Case{300, {"Game Score", Answer::OK}, "300"}, Case{300, {"Game Score", Answer::Cancel}, "300"},
          Case{200, {"Score Mismatch", Answer::No}, "200"},
          Case{200, {"Score Mismatch", Answer::Yes}, "300"}}) {
        Play other;
        other.insertEvent(1);
        other.insertGame(1, "L", one.recorded);
        for (std::size_t i = 0; i < nine.size(); ++i)
            other.insertFrame(static_cast<int>(i + 1), nine[i]);
        other.session().gMode = kEdit;
        other.load("frmGame");
        other.click("cmdUpdFrame", {{"Update Frames", Answer::Yes}});
        for (int frame = 1; frame < 9; ++frame)
            other.click("cmdNextFrame");
        other.click("cmdNextFrame", {kAddAnother});
        other.type("txtCount(10)", "XXX");
        other.click("cmdNextFrame", {kAllAdded, one.box});
        EXPECT_EQ(other.session().gFrmsRecorded, Int16(10));
        EXPECT_EQ(other.screen().name(), "frmGame");
        EXPECT_EQ(other.text("txtGameScore"), one.shown);
    }
}

TEST_F(FrameScreen, TellsTheScoreOfTheTenthFrameBeforeItCloses) {
    openGame("L", {"X", "X", "X", "X", "X", "X", "X", "X", "X"}, 300);
    for (int frame = 1; frame < 9; ++frame)
        play.click("cmdNextFrame");
    play.click("cmdNextFrame", {kAddAnother});
    play.type("txtCount(10)", "XXX");
    play.display.forgetEvents();
    std::vector<std::string> before{"none"};
    Expected score{"Game Score", Answer::Cancel};
    score.meanwhile = [&] { before = play.display.events(); };
    play.click("cmdNextFrame", {kAllAdded, score});
    EXPECT_TRUE(before.empty());
    EXPECT_EQ(play.display.events(), (std::vector<std::string>{"unload frmFrame", "show frmMain"}));
}

TEST_F(FrameScreen, ClearsTheRunningScores) {
    openThroughGame(kTenStrikes, 300);
    walkToTheEnd({kLastFrame, {"Game Score", Answer::Cancel}});
    play.click("cmdPrevFrame");
    EXPECT_EQ(play.text("txtTotScore") + play.text("txtScore(10)"), "");
    EXPECT_EQ(play.text("txtScore(9)"), "270");
    play.click("cmdResetPinfall", {{"Reset Pinfall", Answer::Yes}});
    for (int frame = 1; frame <= 10; ++frame)
        EXPECT_EQ(play.text("txtScore(" + std::to_string(frame) + ")"), "");
    EXPECT_EQ(cell(9), "");
    EXPECT_EQ(cell(8), "X");
}

TEST_F(FrameScreen, ClearsTheTotalWithTheScores) {
    openThroughGame(kTenStrikes, 300);
    walkToTheEnd({kLastFrame, {"Game Score", Answer::Cancel}});
    EXPECT_EQ(play.text("txtTotScore"), "300");
    play.click("cmdResetPinfall", {{"Reset Pinfall", Answer::Yes}});
    EXPECT_EQ(play.text("txtTotScore"), "");
}

TEST_F(FrameScreen, LeavesTheEventAsManyGamesAsItHas) {
    openThroughGame(kTenStrikes, 300, 3);
    play.click("cmdPrevious");
    EXPECT_EQ(play.screen().name(), "frmGame");
    play.click("cmdNextGame",
               {{"Game Input", Answer::No,
                 "There are less than 3 games for this event.\r\nDo you want to add another game?"}});
}

// --- The end of the rows, and failures ---

TEST_F(FrameScreen, OffersToRetryAfterTheEndOfTheRows) {
    openGame("L", {"X", "9/"});
    play.click("cmdNextFrame");
    play.click("cmdNextFrame", {with(kAddAnother, Answer::No)});
    EXPECT_EQ(play.text("txtFrameNum"), "2");
    play.display.forgetEvents();
    play.click("cmdNextFrame", {with(kNoRow, Answer::Retry)});
    EXPECT_EQ(play.display.boxes().back().icon, Icon::None);
    EXPECT_EQ(play.display.events(),
              (std::vector<std::string>{"unload frmFrame", "load frmFrame", "show frmFrame"}));
    EXPECT_EQ(play.text("txtFrameNum"), "1");
    play.click("cmdNextFrame");
    play.click("cmdNextFrame", {with(kAddAnother, Answer::No)});
    play.display.forgetEvents();
    play.click("cmdRetMain", {kNoRow});  // the handlers that called the save end there too
    EXPECT_EQ(play.display.events(), (std::vector<std::string>{"unload frmFrame", "show frmMain"}));
}

TEST_F(FrameScreen, RetriesItsLoading) {
    play.session().gSessionNum = 5;
    const Expected plain{
        "Tallybrook", Answer::OK,
        "Error Number: 3021\r\nError: Either BOF or EOF is True, or the current record has been "
        "deleted. Requested operation requires a current record."};
    Expected retry = with(kNoRow, Answer::Retry);
    retry.text = kNoRow.text.substr(0, kNoRow.text.rfind("Save_Frame")) + "Form Load";
    play.display.forgetEvents();
    play.handOverTo("frmFrame", {plain, retry, plain, with(retry, Answer::Cancel)});
    EXPECT_EQ(play.display.boxes()[0].icon, Icon::None);
    EXPECT_EQ(play.display.boxes()[1].icon, Icon::None);
    EXPECT_EQ(play.display.events(),
              (std::vector<std::string>{"hide frmMain", "load frmFrame", "unload frmFrame", "show frmMain"}));
}

TEST_F(FrameScreen, RetriesItsFirstReadingHoweverOftenThatIsAsked) {
    std::vector<Expected> boxes;
    for (int reading = 1; reading <= 20; ++reading) {  // more than there are
        boxes.push_back({"Tallybrook"});
        boxes.push_back({"Database Error", Answer::Retry});
    }
    boxes.back().answer = Answer::Cancel;
    play.handOverTo("frmFrame", boxes);
    EXPECT_EQ(play.screen().name(), "frmMain");
}

TEST_F(FrameScreen, UpdatesTheSeriesOnTheWayOut) {
    openGame("P", {"X", "9/"}, 210);
    play.click("cmdPrevious");
    EXPECT_EQ(play.rows("tblEventInfo", {"fldGmsRecorded", "fldSeriesTot", "fldSeriesAvg"}),
              std::vector<std::string>{"1|210|210"});
    EXPECT_EQ(play.screen().name(), "frmMain");
}

TEST_F(FrameScreen, IsThereUntilTheSeriesIsUpdated) {
    openGame("L", {"X"});
    play.program().store().connection().database().exec(
        "CREATE TRIGGER refusal BEFORE UPDATE ON tblEventInfo BEGIN SELECT RAISE(ABORT, 'full'); END");
    play.display.forgetEvents();
    std::vector<std::string> before{"none"};
    Expected refused{"Database Error"};
    refused.meanwhile = [&] { before = play.display.events(); };
    play.click("cmdPrevious", {refused});
    EXPECT_TRUE(before.empty());
    EXPECT_EQ(play.screen().name(), "frmMain");
}

TEST_F(FrameScreen, UpdatesTheSeriesOnTheWayToTheMainMenu) {
    openGame("P", {"X", "9/"}, 210);
    play.click("cmdRetMain");
    EXPECT_EQ(play.rows("tblEventInfo", {"fldGmsRecorded", "fldSeriesTot", "fldSeriesAvg"}),
              std::vector<std::string>{"1|210|210"});
}

TEST_F(FrameScreen, UpdatesTheSeriesBeforeItAsksWhetherToExit) {
    openGame("P", {"X", "9/"}, 210);
    play.click("cmdExit", {{"Confirm - Exit", Answer::No}});
    EXPECT_EQ(play.rows("tblEventInfo", {"fldGmsRecorded", "fldSeriesTot", "fldSeriesAvg"}),
              std::vector<std::string>{"1|210|210"});
}

TEST_F(FrameScreen, GoesOnWithAFrameNumberThatIsNone) {
    play.insertEvent();
    play.insertGame(1, "L");
    play.insertFrame(11, "X");
    const Expected failure{"Database Error", Answer::OK};
    play.handOverTo("frmFrame", {failure, failure});
    EXPECT_NE(play.display.boxes()[0].text.find(
                  "Error Number: 340\r\nError: Control array element '11' doesn't exist"),
              std::string::npos);
    play.click("cmdNextFrame", {failure, kFault});
    EXPECT_NE(play.display.boxes()[2].text.find("Module: frmFrame, cmdNextFrame."), std::string::npos);
    EXPECT_FALSE(play.program().hasEnded());
}

TEST_F(FrameScreen, GoesOnFromAFrameNumberThatIsNoneToTheNextRow) {
    for (const auto& [odd, next] : {std::pair{0, 1}, std::pair{11, 12}}) {
        Play other;
        other.insertEvent();
        other.insertGame(1, "P");
        for (const int frame : {odd, next})
            other.insertFrame(frame, "X", "X");
        const Expected failure{"Database Error", Answer::OK};
        other.handOverTo("frmFrame", {failure, failure});
        other.click("cmdNextFrame", std::vector<Expected>(next == 1 ? 2 : 4, failure));
        EXPECT_FALSE(other.program().hasEnded());
        EXPECT_EQ(other.text("txtFrameNum"), std::to_string(next));
    }
}

TEST_F(FrameScreen, AddsTheMarksOfThePanelsToWhatWasTypedIntoTheCell) {
    play.insertEvent();
    play.insertGame(1, "L");
    play.insertFrame(1, "X");
    play.handOverTo("frmFrame");
    play.type("txtCount(1)", "7");
    play.click("cmdReset", {{"Reset Form", Answer::Yes}});
    play.type("txtLaneNum", "13");
    play.click("optFirstNo");
    play.click("optSecondYes");
    EXPECT_EQ(play.text("txtCount(1)"), "7/");
}

TEST_F(FrameScreen, ForgetsTheMarksOfACellThatIsEmptied) {
    openGame("L", {"X"});
    play.type("txtCount(1)", "7");
    play.type("txtCount(1)", "");
    play.click("cmdReset", {{"Reset Form", Answer::Yes}});
    play.type("txtLaneNum", "13");
    play.click("optFirstNo");
    play.click("optSecondYes");
    EXPECT_EQ(cell(1), "/");
}

TEST_F(FrameScreen, IsNotSavedWhereItCannotBeStored) {
    openGame("P", {});
    play.click("cmdExit", {{"Confirm - Exit", Answer::No}});
    EXPECT_EQ(play.display.saves(), 1);
    play.program().store().connection().database().exec(
        "CREATE TRIGGER refusal BEFORE UPDATE ON tblFrameInfo BEGIN SELECT RAISE(ABORT, 'full'); END");
    play.type("txtComment", "slow");
    play.click("cmdExit", {{"Database Error"}, {"Confirm - Exit", Answer::No}});
    EXPECT_EQ(play.display.saves(), 1);
    EXPECT_EQ(frames({"fldComment"}), std::vector<std::string>{""});
}

TEST_F(FrameScreen, StoresTheRestOfAFrameWithAnImpossibleLane) {
    openGame("P", {});
    play.click("optFirstYes");
    play.type("txtLaneNum", "1e999");
    play.click("mnuRetMain", {{"Database Error", Answer::OK}});
    EXPECT_NE(
        play.display.boxes()[0].text.find("Error Number: 6\r\nError: Overflow\r\nModule: Frame Information, "
                                          "Save_Frame."),
        std::string::npos);
    EXPECT_EQ(frames({"fldLaneBowled", "fldLineScore"}), std::vector<std::string>{"0|X"});
    EXPECT_EQ(play.screen().name(), "frmMain");
}

TEST_F(FrameScreen, NamesTheProcedureThatFoundNoRow) {
    struct Case {
        std::string click, debugName;
    };
    for (const Case& one : {Case{"cmdNextFrame", "Save_Frame"}, Case{"cmdPrevFrame", "Save_Frame"}}) {
        Play other;
        other.insertEvent();
        other.insertGame(1, "L");
        other.insertFrame(1, "X");
        other.handOverTo("frmFrame");
        other.click("cmdNextFrame", {with(kAddAnother, Answer::No)});
        Expected box = kNoRow;
        box.text = kNoRow.text.substr(0, kNoRow.text.rfind("Save_Frame")) + one.debugName;
        other.click(one.click, {box});
        EXPECT_EQ(other.screen().name(), "frmMain");
    }
}

TEST_F(FrameScreen, NamesAProcedureInItsBoxesAsPeopleKnowIt) {
    openGame("P", {});
    const Handler step = frameHandler(play.program(), play.screen(), "Load_Frame", "Load_Record");
    const RunTimeError failure(error::kOverflow);
    Expected noRow = kNoRow;
    noRow.text = kNoRow.text.substr(0, kNoRow.text.rfind("Save_Frame")) + "Load_Record";
    play.run(
        [&] { step([&] { throw RunTimeError(failure); }); },
        {{"Database Error", Answer::OK, databaseErrorBox(failure, "Frame Information, Load_Frame.").text}});
    play.run([&] { step([] { throw RunTimeError(error::kNoCurrentRow); }); }, {noRow});
    EXPECT_EQ(play.screen().name(), "frmMain");
}

TEST_F(FrameScreen, ClosesByTheTitleBarAsByPreviousScreen) {
    openGame("P", {});
    play.type("txtLaneNum", "99");  // not left by the title bar, but by the way to Reset Pinfall
    play.close({kFault, {"Tallybrook", Answer::OK}});
    EXPECT_EQ(play.focus(), "txtLaneNum");
}

}  // namespace

}  // namespace tallybrook::test
