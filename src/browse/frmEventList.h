#pragma once

#include "controls/Grid.h"
#include "shell/ProgramScreen.h"
#include "shell/StandardCommands.h"
#include "store/DataControl.h"

#include <string>

namespace tallybrook {

/// The events to edit or delete, or those that a search has found, to report on one of them.
class frmEventList : public ProgramScreen {
public:
    explicit frmEventList(Program& owner);

    DataControl adoTBKEvent{store()};
    DataControl adoTBKGame{store()};
    DataControl adoTBKFrame{store()};

    Picture imgLogo{*this, "imgLogo", "logo.svg"};
    Label lblTitle{*this, "lblTitle", "Event Listing", LabelLook::Heading};

    Grid dgdEventList;

    GroupBox fraType{*this, "fraType", "Report Type"};
    OptionGroup reportTypes;
    ControlArray<OptionButton> optRpType;
    GroupBox fraSyncHH{*this, "fraSyncHH", "Sync to PDA?"};
    OptionGroup syncChoices{fraSyncHH};
    ControlArray<OptionButton> optSyncPDA;

    Button cmdGetRecord{
        *this, "cmdGetRecord", "R&etrieve Event", {.tip = "Retrieve an event for editing or reporting"}};
    Button cmdDelRecord{*this, "cmdDelRecord", "&Delete Event", {.tip = "Delete the event"}};
    PreviousButton cmdPrevious{program(), *this};
    MainButton cmdMain{program(), *this};
    ExitButton cmdExit{program(), *this};

    FileMenu mnuFile{*this, cmdExit};
    Menu mnuCommands{*this, "mnuCommands", "&Commands"};
    Menu mnuRetrieve{mnuCommands, "mnuRetrieve", cmdGetRecord};
    Menu mnuDelRecord{mnuCommands, "mnuDelRecord", cmdDelRecord};
    Menu mnuPrevious{mnuCommands, "mnuPrevious", cmdPrevious};
    Menu mnuMain{mnuCommands, "mnuMain", cmdMain};
    HelpMenu mnuHelp{program(), *this};

    Layout layout() override;
    void onLoad() override;
    void onClose() override;
    void onUnload() override;

private:
    void offerEditing(const Handler& step);
    void offerReports(const Handler& step);
    [[nodiscard]] const std::string& searchStatement() const;
    void tellCount(const std::string& before, const std::string& after, const std::string& hint);

    void cmdGetRecord_Click();
    void writeReport();
    void cmdDelRecord_Click();
    void deleteEvent(const Handler& step, const std::string& name);
    void Delete_Records(DataControl& control, const std::string& label, const std::string& sortField,
                        const std::string& table, const std::string& name);

    FileDialog cdlEventList{
        .purpose = FileDialog::Purpose::Save, .title = "Event Report", .filter = "Text Files(*.txt)|*.txt"};
    std::string reportType_;
    bool copiesToHandheld_ = false;
};

}  // namespace tallybrook
