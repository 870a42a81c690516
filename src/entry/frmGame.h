#pragma once

#include "bowling/LanePair.h"
#include "shell/ProgramScreen.h"
#include "shell/StandardCommands.h"
#include "store/DataControl.h"

#include <string>

namespace tallybrook {

/// Where the games of one event are added and edited, one at a time.
class frmGame : public ProgramScreen {
public:
    explicit frmGame(Program& owner);

    Picture imgTbrk{*this, "imgTbrk", "logo.svg"};
    Label lblTitle{*this, "lblTitle", "Game Information", LabelLook::Heading};

    TextBox txtEventName{*this, "txtEventName", {.readOnly = true, .tabStop = false}};
    TextBox txtDateBowled{*this, "txtDateBowled", {.width = 12, .readOnly = true, .tabStop = false}};
    TextBox txtGameNum{*this, "txtGameNum", {.width = 12, .readOnly = true, .tabStop = false}};
    TextBox txtStartLane{*this, "txtStartLane", {.width = 6}};
    TextBox txtGameScore{*this, "txtGameScore", {.tip = "Enter the score you got for the game", .width = 6}};
    TextBox txtLaneCond{
        *this, "txtLaneCond", {.tip = "Enter the lane condition - use whatever format you like"}};
    TextBox txtComment{*this, "txtComment", {.tip = "If desired, enter any comments about the game"}};

    GroupBox fraAltLanes{*this, "fraAltLanes", "Alternate Lanes?"};
    OptionGroup altLanes{fraAltLanes};
    ControlArray<OptionButton> optAltLanes;
    GroupBox fraScoreType{*this, "fraScoreType", "Scoring Method", "Select the scoring type for this game."};
    OptionGroup scoreTypes;
    ControlArray<OptionButton> optScType;

    Label lblEvent{*this, "lblEvent", "Event Name", txtEventName};
    Label lblEventDate{*this, "lblEventDate", "Event Date", txtDateBowled};
    Label lblGameLabel{*this, "lblGameLabel", "Game", txtGameNum};
    Label lblLanePair{*this, "lblLanePair", "Starting &Lane", txtStartLane};
    Label lblGameScore{*this, "lblGameScore", "Game Sc&ore", txtGameScore};
    Label lblLaneCond{*this, "lblLaneCond", "&Lane Condition", txtLaneCond};
    Label lblComment{*this, "lblComment", "&Comment", txtComment};

    Button cmdNextGame{*this, "cmdNextGame", "N&ext Game", {.tip = "Toggle to the next game of the event"}};
    Button cmdPrevGame{
        *this, "cmdPrevGame", "P&revious Game", {.tip = "Toggle to the previous game of the event"}};
    Button cmdUpdFrame{
        *this, "cmdUpdFrame", "U&pdate Frames", {.tip = "Update the current frames of the game"}};
    Button cmdReset{*this,
                    "cmdReset",
                    "Reset &Form",
                    {.tip = "Reset all the controls in the form - this does not save the record"}};
    PreviousButton cmdPrevious{program(), *this, {.caption = "Previous &Screen"}};
    MainButton cmdMain{program(), *this, {.caption = "Return to &Main"}};
    ExitButton cmdExit{program(), *this};

    FileMenu mnuFile{*this, cmdExit};
    Menu mnuCommands{*this, "mnuCommands", "&Commands"};
    Menu mnuNextGame{mnuCommands, "mnuNextGame", cmdNextGame};
    Menu mnuPrevGame{mnuCommands, "mnuPrevGame", cmdPrevGame};
    Menu mnuUpdFrame{mnuCommands, "mnuUpdFrame", cmdUpdFrame};
    Menu mnuReset{mnuCommands, "mnuReset", cmdReset};
    Menu mnuPrevious{mnuCommands, "mnuPrevious", "&Previous Screen", cmdPrevious};
    Menu mnuMain{mnuCommands, "mnuMain", cmdMain};
    HelpMenu mnuGameHelp{program(), *this, {.name = "mnuGameHelp"}};

    Layout layout() override;
    void onLoad() override;
    void onClose() override;
    void onUnload() override;

private:
    void Clear_Game();
    void Add_Game();
    bool Check_Lane();
    void Update_Game();
    void Load_Game();
    void Get_Lanes();

    void beginNewGame(const Handler& step);
    void offerToEdit();
    void writeGame(const Handler& step);
    void readGame(const Handler& step);
    void moveBeyondLastGame(const Handler& step);
    void showGameNumber();

    void cmdNextGame_Click();
    void cmdPrevGame_Click();
    void cmdUpdFrame_Click();
    void cmdReset_Click();
    void cmdPrevious_Click();
    void cmdMain_Click();
    void cmdExit_Click();

    DataControl adoTBKEvent{store()};
    DataControl adoTBKGame{store()};
    DataControl adoTBKFrame{store()};

    Int16 startLane_;
    Int16 gameScore_;
    Int16 framesRecorded_;
    LanePair lanes_;
    std::string scoreType_;
    std::string handheldRecord_;
    std::string bowlingHand_;
};

}  // namespace tallybrook
