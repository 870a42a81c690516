#pragma once

#include "shell/ProgramScreen.h"
#include "shell/StandardCommands.h"

namespace tallybrook {

/// Where the logbook is checked and counted, and reports are opened.
class frmDBTools : public ProgramScreen {
public:
    explicit frmDBTools(Program& owner);

    Picture imgTbrk{*this, "imgTbrk", "logo.svg", 64};
    Label lblTitle{*this, "lblTitle", "Database Tools", LabelLook::Heading};

    Button cmdDBCheck{*this, "cmdDBCheck", "&Check Database"};
    Button cmdDBStats{*this, "cmdDBStats", "&Database Statistics"};
    MainButton cmdRetMain{
        program(), *this, {.name = "cmdRetMain", .caption = "Return to &Main Menu", .tip = ""}};
    ExitButton cmdExit{program(), *this, {.tip = ""}};

    Menu mnuFile{*this, "mnuFile", "&File"};
    Menu mnuFileOpen{mnuFile, "mnuFileOpen", "&Open"};
    Menu mnuFileExit{mnuFile, "mnuFileExit", cmdExit};
    Menu mnuDBTools{*this, "mnuDBTools", "&Tools"};
    Menu mnuDBCheck{mnuDBTools, "mnuDBCheck", cmdDBCheck};
    Menu mnuDBStats{mnuDBTools, "mnuDBStats", "Database &Statistics", cmdDBStats};
    Menu mnuRetMain{mnuDBTools, "mnuRetMain", "&Main Menu", cmdRetMain};
    HelpMenu mnuHelp{program(), *this};

    Layout layout() override;
    void onLoad() override;
    void onClose() override;

private:
    void cmdDBCheck_Click();
    void cmdRetMain_Click();

    FileDialog cdlDBTools{.title = "Open Report"};
};

}  // namespace tallybrook
