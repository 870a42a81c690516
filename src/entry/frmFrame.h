#pragma once

#include "bowling/FrameCheck.h"
#include "bowling/FrameLanes.h"
#include "bowling/FrameWords.h"
#include "entry/BallPanels.h"
#include "entry/ScoreSheet.h"
#include "shell/ProgramScreen.h"
#include "shell/StandardCommands.h"
#include "store/DataControl.h"

#include <string>

namespace tallybrook {

/// Where the frames of one game are entered and changed, one at a time: ball by ball with the pins left
/// standing, or as the marks of a score sheet.
class frmFrame : public ProgramScreen {
public:
    explicit frmFrame(Program& owner);

    TextBox txtEventName{*this, "txtEventName", {.readOnly = true, .tabStop = false}};
    TextBox txtDateBowled{
        *this, "txtDateBowled", {.width = 12, .readOnly = true, .centred = true, .tabStop = false}};
    TextBox txtGameNum{
        *this, "txtGameNum", {.width = 4, .readOnly = true, .centred = true, .tabStop = false}};
    TextBox txtNumGames{
        *this, "txtNumGames", {.width = 4, .readOnly = true, .centred = true, .tabStop = false}};
    TextBox txtLanePair{
        *this, "txtLanePair", {.width = 8, .readOnly = true, .centred = true, .tabStop = false}};
    TextBox txtFrameNum{*this,
                        "txtFrameNum",
                        {.tip = "Enter the frame number - this must be at least 1 and not more than 10",
                         .width = 4,
                         .readOnly = true,
                         .centred = true,
                         .tabStop = false}};
    TextBox txtLaneNum{*this,
                       "txtLaneNum",
                       {.tip = "Enter the lane number that the frame was bowled on - you should only have to "
                               "enter this for the "
                               "first frame as all other frames will alternate according to what was entered "
                               "in the first frame",
                        .width = 4,
                        .centred = true}};
    TextBox txtBallUsed{
        *this, "txtBallUsed", {.tip = "If desired enter the ball that you used", .width = 14}};
    TextBox txtFootPos{
        *this,
        "txtFootPos",
        {.tip = "If desired enter the board number where you stood on the lane - this is usually "
                "the board number on the approach",
         .width = 14}};
    TextBox txtLaneTgt{
        *this,
        "txtLaneTgt",
        {.tip = "If desired enter the target on the lane - this is usually the board number", .width = 14}};
    TextBox txtComment{
        *this, "txtComment", {.tip = "Enter comments on the frame if desired", .multiline = true}};

    ScoreSheet sheet{*this};

    Button cmdNextFrame{*this,
                        "cmdNextFrame",
                        "&Next Frame",
                        {.tip = "Toggle to the next frame of the game (used in edit mode)"}};
    Button cmdPrevFrame{*this,
                        "cmdPrevFrame",
                        "&Previous Frame",
                        {.tip = "Toggle to the previous frame (used in edit mode)"}};
    Button cmdReset{*this,
                    "cmdReset",
                    "Reset F&orm",
                    {.tip = "Reset all the controls on the form - this does not save the record"}};
    PreviousButton cmdPrevious{program(), *this};
    MainButton cmdRetMain{program(), *this, {.name = "cmdRetMain", .caption = "Return to &Main"}};
    ExitButton cmdExit{program(), *this};
    Button cmdResetPinfall{*this,
                           "cmdResetPinfall",
                           "Rese&t Pinfall",
                           {.tip = "This will reset all of the pinfall for this frame."}};
    Button cmdPinfallHelp{*this,
                          "cmdPinfallHelp",
                          "P&infall Entry Help",
                          {.tip = "Click this button to get help on entering pinfall"}};

    BallPanels balls{*this};

    Label lblEventName{*this, "lblEventName", "Event Name", txtEventName};
    Label lblDateBowled{*this, "lblDateBowled", "Date Bowled", txtDateBowled};
    Label lblGameNum{*this, "lblGameNum", "Game", txtGameNum};
    Label lblNumGames{*this, "lblNumGames", "of", txtNumGames};
    Label lblLanePair{*this, "lblLanePair", "Lanes", txtLanePair};
    Label lblFrameNum{*this, "lblFrameNum", "Fr&ame", txtFrameNum};
    Label lblOfTen{*this, "lblOfTen", "of 10"};
    Label lblLaneNum{*this, "lblLaneNum", "&Lane", txtLaneNum};
    Label lblBallUsed{*this, "lblBallUsed", "&Ball Used", txtBallUsed};
    Label lblFootPos{*this, "lblFootPos", "Foot &Position", txtFootPos};
    Label lblLaneTgt{*this, "lblLaneTgt", "Lane &Target", txtLaneTgt};
    Label lblComment{*this, "lblComment", "&Comment", txtComment};

    FileMenu mnuFile{*this, cmdExit};
    Menu mnuCommands{*this, "mnuCommands", "&Commands"};
    Menu mnuPinfall{mnuCommands, "mnuPinfall", "P&infall"};
    Menu mnuResetPinfall{mnuPinfall, "mnuResetPinfall", cmdResetPinfall};
    Menu mnuHelpPinfall{mnuPinfall, "mnuHelpPinfall", "P&infall Help", cmdPinfallHelp};
    Menu mnuNextFrame{mnuCommands, "mnuNextFrame", cmdNextFrame};
    Menu mnuPrevFrame{mnuCommands, "mnuPrevFrame", "P&revious Frame", cmdPrevFrame};
    Menu mnuReset{mnuCommands, "mnuReset", cmdReset};
    Menu mnuPrevious{mnuCommands, "mnuPrevious", cmdPrevious};
    Menu mnuRetMain{mnuCommands, "mnuRetMain", cmdRetMain};
    HelpMenu mnuFrameHelp{program(), *this, {.name = "mnuFrameHelp"}};

    Layout layout() override;
    void onLoad() override;
    void onClose() override;
    void onUnload() override;

private:
    void connect();

    // The frame rows.
    void Load_Frame();
    void Add_Frame();
    void Save_Frame();
    void loadHeader(const Handler& step);
    void loadFrames(const Handler& step);
    void readFrame(const Handler& step);
    void showBalls(const Handler& step);
    void prepareEntry(const Handler& step);
    void leaveFullGame();
    void writeFrame(const Handler& step);
    void moveBeyondLastFrame(const Handler& step);
    void setPreviousFrameEnabled(bool enabled);

    // The frame that is entered.
    void beginEntry();
    void clearEntry();
    void showCell() { cell().setText(balls.entry.cell()); }
    void tellFrame() { tell(inWords(balls.entry.cell())); }
    void tellNextFrame(Int16 left);
    TextBox& cell() { return sheet.txtCount(frameNumber_); }
    [[nodiscard]] bool recordsPinfall() const { return session().gScoreType == "P"; }
    [[nodiscard]] bool isTenth() const { return frameNumber_ == kFrames; }

    // The check and the score.
    Verdict Check_Frame();
    bool isGood(Verdict verdict);
    void Calc_Score();
    void acceptScore(const Handler& step, Int16 score);

    void cmdNextFrame_Click();
    void cmdPrevFrame_Click();
    void cmdReset_Click();
    void cmdResetPinfall_Click();
    void cmdPrevious_Click();
    void cmdRetMain_Click();
    void cmdExit_Click();
    void txtLaneNum_LostFocus();

    DataControl adoTBKEvent{store()};
    DataControl adoTBKGame{store()};
    DataControl adoTBKFrame{store()};

    Int16 frameNumber_;
    FrameLanes lanes_;
    Int16 gameScore_;
    std::string ballUsed_;
    std::string footPosition_;
    std::string laneTarget_;
};

}  // namespace tallybrook
