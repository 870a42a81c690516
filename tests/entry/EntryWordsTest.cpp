// What the entry screens say: their captions, labels and tips, and how their boxes differ.

#include "support/Play.h"

#include <string>

#include <fmt/format.h>

namespace tallybrook::test {

namespace {

void expectHelpMenu(Play& play, const char* menu) {
    play.expectSeen({{menu, "&Help"}, {"mnuTBKHelp", "Tallybrook Help"}, {"mnuAbout", "&About"}});
}

TEST(EntryWords, OfTheEventScreen) {
    Play play;
    play.load("frmEvent");
    EXPECT_EQ(play.screen().caption(), "Event Information");
    play.expectSeen({{"lblTitle", "Event Information"},
                     {"txtEvent", "", "Enter the name of your event (i.e league name, tournament name)"},
                     {"txtDateBowled", "", "Enter the date that you bowled in the event"},
                     {"txtCenter", "", "Enter the name of the bowling center"},
                     {"txtLoc", "", "Enter the location of the bowling center"},
                     {"optLeague", "League", "Check this box if this was a league"},
                     {"optTourn", "Tournament", "Check this box if this was a tournament"},
                     {"optPractice", "Practice", "Check this button if this was a practice session"},
                     {"txtNumGames", "", "Enter the number of games bowled. This must be greater than 0"},
                     {"txtComment", "", "Enter any comments you might have about the event"},
                     {"lblEvent", "&Event Name"},
                     {"lblDateBowled", "&Date Bowled"},
                     {"lblCenter", "&Center Name"},
                     {"lblLoc", " &Location"},
                     {"lblType", "Event T&ype"},
                     {"lblNumGames", "&Total Games Bowled"},
                     {"lblComment", "C&omments"}});
    play.expectSeen({{"cmdNextEvent", "&Next Event", "Save this record and enter another event"},
                     {"cmdUpdGames", "Update &Games", "Update the games in this event (used in edit mode)"},
                     {"cmdReset", "Reset &Form", "Reset the form - this does not save the record"},
                     {"cmdPrevious", "&Previous Screen", "Return to the previous screen"},
                     {"cmdMain", "&Main Menu", "Return to the main menu"},
                     {"cmdExit", "E&xit", "Exit Tallybrook"},
                     {"mnuFile", "&File"},
                     {"mnuExit", "E&xit"},
                     {"mnuCommands", "&Commands"},
                     {"mnuNextEvent", "&Next Event"},
                     {"mnuUpdGames", "Update &Games"},
                     {"mnuReset", "Reset &Form"},
                     {"mnuPrevious", "&Previous Screen"},
                     {"mnuMain", "Return to &Main"}});
    expectHelpMenu(play, "mnuEventHelp");
}

TEST(EntryWords, OfTheGameScreen) {
    Play play;
    play.insertEvent();
    play.load("frmGame");
    EXPECT_EQ(play.screen().caption(), "Game Information");
    play.expectSeen(
        {{"lblTitle", "Game Information"},
         {"txtStartLane", ""},
         {"txtGameScore", "", "Enter the score you got for the game"},
         {"txtLaneCond", "", "Enter the lane condition - use whatever format you like"},
         {"txtComment", "", "If desired, enter any comments about the game"},
         {"fraAltLanes", "Alternate Lanes?"},
         {"optAltLanes(0)", "Yes"},
         {"optAltLanes(1)", "No"},
         {"fraScoreType", "Scoring Method", "Select the scoring type for this game."},
         {"optScType(0)", "Pinfall", "Select \"Pinfall\" if you record your full pinfall, e.g. 2-4-5, etc."},
         {"optScType(1)", "Line Score",
          "Select \"Line Score\" if you are simply recording from your scoresheet, e.g. 9/,X,80 etc."},
         {"optScType(2)", "Game Score (No frames recorded)",
          "Select \"Game Score\" if you are only recording your game scores without recording frames."},
         {"lblEvent", "Event Name"},
         {"lblEventDate", "Event Date"},
         {"lblLanePair", "Starting &Lane"},
         {"lblGameScore", "Game Sc&ore"},
         {"lblLaneCond", "&Lane Condition"},
         {"lblComment", "&Comment"}});
    play.expectSeen(
        {{"cmdNextGame", "N&ext Game", "Toggle to the next game of the event"},
         {"cmdPrevGame", "P&revious Game", "Toggle to the previous game of the event"},
         {"cmdUpdFrame", "U&pdate Frames", "Update the current frames of the game"},
         {"cmdReset", "Reset &Form", "Reset all the controls in the form - this does not save the record"},
         {"cmdPrevious", "Previous &Screen", "Return to the previous screen"},
         {"cmdMain", "Return to &Main", "Return to the main menu"},
         {"cmdExit", "E&xit", "Exit Tallybrook"},
         {"mnuFile", "&File"},
         {"mnuExit", "E&xit"},
         {"mnuCommands", "&Commands"},
         {"mnuNextGame", "N&ext Game"},
         {"mnuPrevGame", "P&revious Game"},
         {"mnuUpdFrame", "U&pdate Frames"},
         {"mnuReset", "Reset &Form"},
         {"mnuPrevious", "&Previous Screen"},
         {"mnuMain", "Return to &Main"}});
    expectHelpMenu(play, "mnuGameHelp");
}

class FrameWords : public testing::Test {
protected:
    FrameWords() {
        play.insertEvent();
        play.insertGame();
        play.load("frmFrame");
    }
    Play play;
};

TEST_F(FrameWords, OfTheFrame) {
    EXPECT_EQ(play.screen().caption(), "Frame Information");
    play.expectSeen(
        {{"txtFrameNum", "", "Enter the frame number - this must be at least 1 and not more than 10"},
         {"txtLaneNum", "",
          "Enter the lane number that the frame was bowled on - you should only have to enter this for the "
          "first frame as all other frames will alternate according to what was entered in the first frame"},
         {"txtBallUsed", "", "If desired enter the ball that you used"},
         {"txtFootPos", "",
          "If desired enter the board number where you stood on the lane - this is usually the board number "
          "on the approach"},
         {"txtLaneTgt", "", "If desired enter the target on the lane - this is usually the board number"},
         {"txtComment", "", "Enter comments on the frame if desired"},
         {"lblEventName", "Event Name"},
         {"lblDateBowled", "Date Bowled"},
         {"lblGameNum", "Game"},
         {"lblNumGames", "of"},
         {"lblLanePair", "Lanes"},
         {"lblFrameNum", "Fr&ame"},
         {"lblOfTen", "of 10"},
         {"lblLaneNum", "&Lane"},
         {"lblBallUsed", "&Ball Used"},
         {"lblFootPos", "Foot &Position"},
         {"lblLaneTgt", "Lane &Target"},
         {"lblComment", "&Comment"},
         {"lblFraNum(0)", "Total Score"},
         {"lblFraNum(1)", "1"},
         {"lblFraNum(10)", "10"}});
}

TEST_F(FrameWords, OfItsCommands) {
    play.expectSeen(
        {{"cmdNextFrame", "&Next Frame", "Toggle to the next frame of the game (used in edit mode)"},
         {"cmdPrevFrame", "&Previous Frame", "Toggle to the previous frame (used in edit mode)"},
         {"cmdReset", "Reset F&orm", "Reset all the controls on the form - this does not save the record"},
         {"cmdPrevious", "&Previous Screen", "Return to the previous screen"},
         {"cmdRetMain", "Return to &Main", "Return to the main menu"},
         {"cmdExit", "E&xit", "Exit Tallybrook"},
         {"cmdResetPinfall", "Rese&t Pinfall", "This will reset all of the pinfall for this frame."},
         {"cmdPinfallHelp", "P&infall Entry Help", "Click this button to get help on entering pinfall"},
         {"mnuFile", "&File"},
         {"mnuExit", "E&xit"},
         {"mnuCommands", "&Commands"},
         {"mnuPinfall", "P&infall"},
         {"mnuResetPinfall", "Rese&t Pinfall"},
         {"mnuHelpPinfall", "P&infall Help"},
         {"mnuNextFrame", "&Next Frame"},
         {"mnuPrevFrame", "P&revious Frame"},
         {"mnuReset", "Reset F&orm"},
         {"mnuPrevious", "&Previous Screen"},
         {"mnuRetMain", "Return to &Main"}});
    expectHelpMenu(play, "mnuFrameHelp");
}

TEST_F(FrameWords, OfTheBallPanels) {
    play.expectSeen(
        {{"fraFirstPinfall", "Pinfall - 1st Ball"},
         {"lblFirst", "Strike?"},
         {"optFirstYes", "Yes", "Click this button if your first ball was a strike"},
         {"optFirstNo", "No",
          "Click this button if your first ball was not a strike and then click the boxes that correspond "
          "to what you left"},
         {"fraSecondPinfall", "Pinfall - 2nd Ball"},
         {"lblSecond", "Spare?"},
         {"optSecondYes", "Yes",
          "Click this button if you converted the spare (or got a strike on the second ball in the 10th)"},
         {"optSecondNo", "No"},
         {"fraFillPinfall", "Pinfall - Fill Ball",
          "If you are in the 10th frame then you use this to enter the pinfall for your fill ball"},
         {"lblFill", "Strike?"},
         {"optFillYes", "Yes", "Click this button if your fill ball was a strike (or spare)"},
         {"optFillNo", "No"}});
    for (const std::string ball : {"First", "Second", "Fill"}) {
        play.expectSeen({{("lbl" + ball + "Pins").c_str(), "Pins Standing",
                          "Check the boxes that correspond to the pins left on the first ball"},
                         {("cmd" + ball + "Done").c_str(), "&Done",
                          "When you are done entering your pinfall, click this box"}});
        for (int pin = 1; pin <= 10; ++pin) {
            const std::string name = fmt::format("chk{}Pinfall({})", ball, pin);
            EXPECT_EQ(play.control(name).caption(), std::to_string(pin)) << name;
        }
    }
}

TEST_F(FrameWords, StandInBoxesOfTheirKinds) {
    const auto options = [this](const std::string& name) {
        return static_cast<TextBox&>(play.control(name)).options();
    };
    for (const char* name : {"txtDateBowled", "txtGameNum", "txtNumGames", "txtLanePair", "txtFrameNum"}) {
        EXPECT_TRUE(options(name).readOnly && options(name).centred) << name;
        EXPECT_FALSE(play.control(name).isTabStop()) << name;
    }
    EXPECT_TRUE(options("txtEventName").readOnly);
    EXPECT_FALSE(play.control("txtEventName").isTabStop());
    EXPECT_TRUE(options("txtLaneNum").centred);
    EXPECT_TRUE(options("txtComment").multiline);
    for (int frame = 1; frame <= 10; ++frame) {
        const TextBoxOptions count = options("txtCount(" + std::to_string(frame) + ")");
        const TextBoxOptions score = options("txtScore(" + std::to_string(frame) + ")");
        EXPECT_EQ(count.maxLength, frame == 10 ? 3 : 2);
        EXPECT_EQ(score.maxLength, 3);
        EXPECT_TRUE(count.centred && score.centred && score.readOnly);
        EXPECT_EQ(play.enabled("txtScore(" + std::to_string(frame) + ")"), frame <= 2);
    }
    EXPECT_EQ(options("txtTotScore").maxLength, 3);
    EXPECT_TRUE(options("txtTotScore").centred);
}

}  // namespace

}  // namespace tallybrook::test
