#pragma once

#include "shell/ProgramScreen.h"
#include "shell/StandardCommands.h"

#include <string>

namespace tallybrook {

/// The main menu, from which every function is reached. It holds no data.
class frmMain : public ProgramScreen {
public:
    explicit frmMain(Program& owner);

    Picture imgLogo{*this, "imgLogo", "logo.svg", 64};
    Label lblTitle{*this, "lblTitle", "Main Menu", LabelLook::Heading};

    Menu mnuFile{*this, "mnuFile", "&File"};
    Menu mnuHHSetup{mnuFile, "mnuHHSetup", "Handheld &Setup"};
    Menu mnuExit{mnuFile, "mnuExit", "E&xit"};

    Menu mnuMainFile{*this, "mnuMainFile", "&Data"};
    Menu mnuAddEvent{mnuMainFile, "mnuAddEvent", "&Add Data"};
    Menu mnuSyncPDA{mnuAddEvent, "mnuSyncPDA", "Add From &PDA"};
    Menu mnuAddFromForm{mnuAddEvent, "mnuAddFromForm", "Add Fr&om Form"};
    Menu mnuEditData{mnuMainFile, "mnuEditData", "&Edit Data"};
    Menu mnuDBTools{mnuMainFile, "mnuDBTools", "Database &Tools"};
    Menu mnuReports{mnuMainFile, "mnuReports", "&Reports"};

    HelpMenu mnuMainHelp{program(), *this, {.name = "mnuMainHelp"}};

    Layout layout() override;
    void onLoad() override;
    void onClose() override;

private:
    /// The entry hands over to a screen.
    void leadsTo(Menu& entry, const std::string& screen, Int16 mode);
    void leadsTo(Menu& entry, const std::string& screen);
    void goTo(const std::string& screen);
};

}  // namespace tallybrook
