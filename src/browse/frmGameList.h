#pragma once

#include "controls/Grid.h"
#include "shell/ProgramScreen.h"
#include "shell/StandardCommands.h"
#include "store/DataControl.h"

#include <string>

namespace tallybrook {

/// The games that a search has found, to report on one of them.
class frmGameList : public ProgramScreen {
public:
    explicit frmGameList(Program& owner);

    DataControl adoTBKEvent{store()};
    DataControl adoTBKGame{store()};
    DataControl adoTBKFrame{store()};

    Picture imgLogo{*this, "imgLogo", "logo.svg"};
    Label lblTitle{*this, "lblTitle", "Game Listing", LabelLook::Heading};

    Grid dgdEventList;

    Button cmdGetRecord{
        *this, "cmdGetRecord", "R&etrieve Game", {.tip = "Retrieve the record for the selected game"}};
    PreviousButton cmdPrevious{program(), *this};
    MainButton cmdMain{program(), *this};
    ExitButton cmdExit{program(), *this};

    FileMenu mnuFile{*this, cmdExit};
    Menu mnuCommands{*this, "mnuCommands", "&Commands"};
    Menu mnuRetrieve{mnuCommands, "mnuRetrieve", cmdGetRecord};
    Menu mnuPrevious{mnuCommands, "mnuPrevious", cmdPrevious};
    Menu mnuMain{mnuCommands, "mnuMain", cmdMain};
    HelpMenu mnuHelp{program(), *this};

    Layout layout() override;
    void onLoad() override;
    void onClose() override;
    void onUnload() override;

    /// The error path of the loading, which offers to load the screen anew where a record is not there.
    [[nodiscard]] Handler loadHandler();

private:
    [[nodiscard]] const std::string& searchStatement() const;
    void tellCount();
    [[noreturn]] void offerToReload();

    void cmdGetRecord_Click();
    void Write_Report();
    [[nodiscard]] Handler reportHandler();
    [[noreturn]] void giveUpReport();
    [[nodiscard]] std::string chooseFile() const;
    void loadAnew();

    FileDialog cdlGameList{.purpose = FileDialog::Purpose::Save,
                           .title = "Game Report",
                           .filter = "Text Files(*.txt)|*.txt",
                           .name = "Game Report.txt"};
};

}  // namespace tallybrook
