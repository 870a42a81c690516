#pragma once

#include "shell/ProgramScreen.h"
#include "shell/StandardCommands.h"
#include "store/Recordset.h"

#include <string>

namespace tallybrook {

/// Where an event is added or edited.
class frmEvent : public ProgramScreen {
public:
    explicit frmEvent(Program& owner);

    Picture imgLogo{*this, "imgLogo", "logo.svg"};
    Label lblTitle{*this, "lblTitle", "Event Information", LabelLook::Heading};

    TextBox txtEvent{
        *this,
        "txtEvent",
        {.tip = "Enter the name of your event (i.e league name, tournament name)", .maxLength = 50}};
    TextBox txtDateBowled{
        *this, "txtDateBowled", {.tip = "Enter the date that you bowled in the event", .width = 12}};
    TextBox txtCenter{*this, "txtCenter", {.tip = "Enter the name of the bowling center"}};
    TextBox txtLoc{*this, "txtLoc", {.tip = "Enter the location of the bowling center"}};
    OptionGroup eventTypes;
    OptionButton optLeague{*this, "optLeague", eventTypes, "League", "Check this box if this was a league"};
    OptionButton optTourn{*this, "optTourn", eventTypes, "Tournament",
                          "Check this box if this was a tournament"};
    OptionButton optPractice{*this, "optPractice", eventTypes, "Practice",
                             "Check this button if this was a practice session"};
    TextBox txtNumGames{*this,
                        "txtNumGames",
                        {.tip = "Enter the number of games bowled. This must be greater than 0", .width = 6}};
    TextBox txtComment{*this, "txtComment", {.tip = "Enter any comments you might have about the event"}};

    Label lblEvent{*this, "lblEvent", "&Event Name", txtEvent};
    Label lblDateBowled{*this, "lblDateBowled", "&Date Bowled", txtDateBowled};
    Label lblCenter{*this, "lblCenter", "&Center Name", txtCenter};
    Label lblLoc{*this, "lblLoc", " &Location", txtLoc};
    Label lblType{*this, "lblType", "Event T&ype", optLeague};
    Label lblNumGames{*this, "lblNumGames", "&Total Games Bowled", txtNumGames};
    Label lblComment{*this, "lblComment", "C&omments", txtComment};

    Button cmdNextEvent{
        *this, "cmdNextEvent", "&Next Event", {.tip = "Save this record and enter another event"}};
    Button cmdUpdGames{
        *this, "cmdUpdGames", "Update &Games", {.tip = "Update the games in this event (used in edit mode)"}};
    Button cmdReset{
        *this, "cmdReset", "Reset &Form", {.tip = "Reset the form - this does not save the record"}};
    PreviousButton cmdPrevious{program(), *this};
    MainButton cmdMain{program(), *this};
    ExitButton cmdExit{program(), *this};

    FileMenu mnuFile{*this, cmdExit};
    Menu mnuCommands{*this, "mnuCommands", "&Commands"};
    Menu mnuNextEvent{mnuCommands, "mnuNextEvent", cmdNextEvent};
    Menu mnuUpdGames{mnuCommands, "mnuUpdGames", cmdUpdGames};
    Menu mnuReset{mnuCommands, "mnuReset", cmdReset};
    Menu mnuPrevious{mnuCommands, "mnuPrevious", cmdPrevious};
    Menu mnuMain{mnuCommands, "mnuMain", "Return to &Main", cmdMain};
    // The entries of this screen's help menu do nothing, by intention.
    Menu mnuEventHelp{*this, "mnuEventHelp", "&Help"};
    Menu mnuTBKHelp{mnuEventHelp, "mnuTBKHelp", "Tallybrook Help"};
    Menu mnuAbout{mnuEventHelp, "mnuAbout", "&About"};

    Layout layout() override;
    void onLoad() override;
    void onClose() override;
    /// What its entry does not do.
    void onHelp() override { program().display.help(HelpTopic::Contents); }
    void onUnload() override;

private:
    void Add_Event();
    void Load_Event();
    void Update_Event();
    void Save_Prompt();

    bool nameIsGiven();
    bool dateIsGood(const Handler& step);
    void writeEvent(const Handler& step);
    void countGames(const Handler& step);
    void warnIfIncomplete();

    void cmdNextEvent_Click();
    void cmdUpdGames_Click();
    void cmdReset_Click();
    void cmdPrevious_Click();
    void cmdMain_Click();
    void cmdExit_Click();
    void txtCenter_LostFocus();
    void txtNumGames_LostFocus();

    Recordset eventRow_{store()};
    std::string eventType_;
    std::string handheldRecord_;
};

}  // namespace tallybrook
