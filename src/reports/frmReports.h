#pragma once

#include "shell/ProgramScreen.h"
#include "shell/StandardCommands.h"

#include <string>

namespace tallybrook {

/// The door to the reports, and where a finished one is opened.
class frmReports : public ProgramScreen {
public:
    explicit frmReports(Program& owner);

    Picture imgTbrk{*this, "imgTbrk", "logo.svg", 64};
    Label lblTitle{*this, "lblTitle", "Reports", LabelLook::Heading};

    Menu mnuFile{*this, "mnuFile", "&File"};
    Menu mnuOpen{mnuFile, "mnuOpen", "&Open"};
    Menu mnuExit{mnuFile, "mnuExit", "E&xit"};
    Menu mnuSearchMain{*this, "mnuSearchMain", "&Report"};
    Menu mnuRptEvent{mnuSearchMain, "mnuRptEvent", "&Event Reports"};
    Menu mnuRptGame{mnuSearchMain, "mnuRptGame", "&Game Reports"};
    Menu mnuStats{mnuSearchMain, "mnuStats", "&Statistical Reports"};
    Menu mnuRetMain{mnuSearchMain, "mnuRetMain", "Return to &Main Menu"};
    HelpMenu mnuSearchHelp{program(), *this, {.name = "mnuSearchHelp", .aboutName = "mnuSearchHelpAbout"}};

    Layout layout() override;
    void onLoad() override;
    void onClose() override;
    void onUnloaded() override;

private:
    void leadsTo(Menu& entry, const std::string& screen);
    void mnuRetMain_Click();

    FileDialog cdlReport{.title = "Open Report", .name = "*.txt"};
};

}  // namespace tallybrook
