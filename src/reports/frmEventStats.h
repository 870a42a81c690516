#pragma once

#include "controls/Lists.h"
#include "shell/ProgramScreen.h"
#include "store/DataControl.h"

#include <string>

namespace tallybrook {

/// Where the statistical report is asked for: which events it covers, and where it is saved.
class frmEventStats : public ProgramScreen {
public:
    explicit frmEventStats(Program& owner);

    Label lblTitle{*this, "lblTitle", "Event Statistics", LabelLook::Heading};

    GroupBox fraSelEvent{*this, "fraSelEvent", "Event &Type",
                         "Select the type of event that you would like to get statistics on"};
    OptionGroup eventTypes;
    ControlArray<OptionButton> optEvType;

    GroupBox fraFilterOpt{*this, "fraFilterOpt", "F&ilter Data?"};
    OptionGroup filterChoices;
    ControlArray<OptionButton> optFilter;

    GroupBox fraFilter{*this, "fraFilter", "Filter Options"};
    CheckBox chkDate{fraFilter, "chkDate", "Date Range"};
    TextBox txtFrom{fraFilter, "txtFrom", {.width = 12, .enabled = false}};
    TextBox txtTo{fraFilter, "txtTo", {.width = 12, .enabled = false}};
    Label lblFrom{fraFilter, "lblFrom", "From", txtFrom};
    Label lblTo{fraFilter, "lblTo", "To", txtTo};
    CheckBox chkEvent{fraFilter, "chkEvent", "Event Name"};
    ListBox lstEvent{fraFilter, "lstEvent", {.width = 30}};

    GroupBox fraSyncPDA{*this, "fraSyncPDA", "S&ync to PDA?",
                        "Select the type of event that you would like to get statistics on"};
    OptionGroup syncChoices;
    ControlArray<OptionButton> optSync;

    Button cmdGenReport{
        *this,
        "cmdGenReport",
        "&Generate Report",
        {.tip = "Retrieve the statistics based on the event type and retrieval options you selected"}};
    Button cmdReset{*this, "cmdReset", "R&eset Form", {.tip = "Reset all the controls in the form"}};
    Button cmdPrevious{*this, "cmdPrevious", "P&revious Screen", {.tip = "Return to the previous screen"}};
    Button cmdRpt{*this, "cmdRpt", "Rep&orts Menu", {.tip = "Return to the main menu"}};
    Button cmdMain{*this, "cmdMain", "&Main Menu", {.tip = "Return to the main menu"}};
    Button cmdExit{*this, "cmdExit", "E&xit", {.tip = "Exit Tallybrook"}};

    Menu mnuFile{*this, "mnuFile", "&File"};
    Menu mnuExit{mnuFile, "mnuExit", "E&xit", cmdExit};
    Menu mnuCommands{*this, "mnuCommands", "&Commands"};
    Menu mnuRetrieve{mnuCommands, "mnuRetrieve", "&Generate Report", cmdGenReport};
    Menu mnuReset{mnuCommands, "mnuReset", "R&eset Form", cmdReset};
    Menu mnuPrevious{mnuCommands, "mnuPrevious", "&Previous Screen", cmdPrevious};
    Menu mnuRptMenu{mnuCommands, "mnuRptMenu", "Rep&orts Menu", cmdRpt};
    Menu mnuMain{mnuCommands, "mnuMain", "&Main Menu", cmdMain};
    Menu mnuHelp{*this, "mnuHelp", "&Help"};
    Menu mnuTBKHelp{mnuHelp, "mnuTBKHelp", "Tallybrook Help", "F1"};
    Menu mnuAbout{mnuHelp, "mnuAbout", "&About"};

    Layout layout() override;
    void onLoad() override;
    void onClose() override;
    void onUnload() override;

private:
    void Clear_Form();
    void Get_Events();
    void addEventNames(const Handler& step);
    bool Validate_Dates();
    bool refuseDate(const MessageBox& box, TextBox& wrong);

    void optEvType_Click(int index);
    void optFilter_Click(int index);
    void chkDate_Click();
    void chkEvent_Click();
    void cmdGenReport_Click();
    void writeReport();
    void cmdRpt_Click();

    DataControl adoTBKEvent{store()};
    FileDialog cdlEventStats{.purpose = FileDialog::Purpose::Save, .name = "Tallybrook - Statistics Report"};

    std::string EventType;
    std::string EventFilter;
    DateTime DateFrom = kZeroDate;
    DateTime DateTo = kZeroDate;
    bool SyncFlag = false;
};

}  // namespace tallybrook
