#pragma once

#include "controls/Lists.h"
#include "shell/ProgramScreen.h"
#include "shell/StandardCommands.h"
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
    OptionGroup filterChoices{fraFilterOpt};
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
    OptionGroup syncChoices{fraSyncPDA};
    ControlArray<OptionButton> optSync;

    Button cmdGenReport{
        *this,
        "cmdGenReport",
        "&Generate Report",
        {.tip = "Retrieve the statistics based on the event type and retrieval options you selected"}};
    Button cmdReset{*this, "cmdReset", "R&eset Form", {.tip = "Reset all the controls in the form"}};
    PreviousButton cmdPrevious{program(), *this, {.caption = "P&revious Screen"}};
    Button cmdRpt{*this, "cmdRpt", "Rep&orts Menu", {.tip = "Return to the main menu"}};
    MainButton cmdMain{program(), *this};
    ExitButton cmdExit{program(), *this};

    FileMenu mnuFile{*this, cmdExit};
    Menu mnuCommands{*this, "mnuCommands", "&Commands"};
    Menu mnuRetrieve{mnuCommands, "mnuRetrieve", cmdGenReport};
    Menu mnuReset{mnuCommands, "mnuReset", cmdReset};
    Menu mnuPrevious{mnuCommands, "mnuPrevious", "&Previous Screen", cmdPrevious};
    Menu mnuRptMenu{mnuCommands, "mnuRptMenu", cmdRpt};
    Menu mnuMain{mnuCommands, "mnuMain", cmdMain};
    HelpMenu mnuHelp{program(), *this};

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

    std::string eventType_;
    std::string eventFilter_;
    DateTime dateFrom_ = kZeroDate;
    DateTime dateTo_ = kZeroDate;
    bool copiesToHandheld_ = false;
};

}  // namespace tallybrook
