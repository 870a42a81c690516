#pragma once

#include "shell/ProgramScreen.h"

namespace tallybrook {

/// Where the logbook is checked and counted, and reports are opened.
class frmDBTools : public ProgramScreen {
public:
    explicit frmDBTools(Program& owner);

    Picture imgTbrk{*this, "imgTbrk", "logo.svg", 64};
    Label lblTitle{*this, "lblTitle", "Database Tools", LabelLook::Heading};

    Button cmdDBCheck{*this, "cmdDBCheck", "&Check Database"};
    Button cmdDBStats{*this, "cmdDBStats", "&Database Statistics"};
    Button cmdRetMain{*this, "cmdRetMain", "Return to &Main Menu"};
    Button cmdExit{*this, "cmdExit", "E&xit"};

    Menu mnuFile{*this, "mnuFile", "&File"};
    Menu mnuFileOpen{mnuFile, "mnuFileOpen", "&Open"};
    Menu mnuFileExit{mnuFile, "mnuFileExit", "E&xit", cmdExit};
    Menu mnuDBTools{*this, "mnuDBTools", "&Tools"};
    Menu mnuDBCheck{mnuDBTools, "mnuDBCheck", "&Check Database", cmdDBCheck};
    Menu mnuDBStats{mnuDBTools, "mnuDBStats", "Database &Statistics", cmdDBStats};
    Menu mnuRetMain{mnuDBTools, "mnuRetMain", "&Main Menu", cmdRetMain};
    Menu mnuHelp{*this, "mnuHelp", "&Help"};
    Menu mnuTBKHelp{mnuHelp, "mnuTBKHelp", "Tallybrook Help"};
    Menu mnuAbout{mnuHelp, "mnuAbout", "&About"};

    Layout layout() override;
    void onLoad() override;
    void onClose() override;

private:
    void cmdDBCheck_Click();
    void cmdRetMain_Click();

    FileDialog cdlDBTools{.title = "Open Report"};
};

}  // namespace tallybrook
