#pragma once

#include "handheld/SyncRun.h"
#include "shell/ProgramScreen.h"

#include <string>

namespace tallybrook {

/// Where the data of a handheld come into the logbook.
class frmSyncPDA : public ProgramScreen {
public:
    explicit frmSyncPDA(Program& owner);

    Picture imgTBK{*this, "imgTBK", "logo.svg", 64};
    Label lblTitle{*this, "lblTitle", "Synchronize PDA", LabelLook::Heading};

    Button cmdAddPDA{*this, "cmdAddPDA", "Add &PDA Data"};
    Button cmdRetMain{*this, "cmdRetMain", "Main Men&u"};
    Button cmdExit{*this, "cmdExit", "&Exit"};

    Menu mnuFile{*this, "mnuFile", "&File"};
    Menu mnuExit{mnuFile, "mnuExit", "&Exit", cmdExit};
    Menu mnuCommands{*this, "mnuCommands", "&Commands"};
    Menu mnuSyncPDA{mnuCommands, "mnuSyncPDA", "Add &PDA Data", cmdAddPDA};
    Menu mnuRetMain{mnuCommands, "mnuRetMain", "Main Men&u", cmdRetMain};
    Menu mnuHelp{*this, "mnuHelp", "&Help"};
    Menu mnuTBKHelp{mnuHelp, "mnuTBKHelp", "Tallybrook Help"};
    Menu mnuAbout{mnuHelp, "mnuAbout", "&About Tallybrook"};

    Layout layout() override;
    void onLoad() override;
    void onClose() override;
    void onUnload() override;

private:
    void cmdAddPDA_Click();
    void cmdRetMain_Click();

    // The steps of a run that are not procedures of their own.
    void begin(SyncRun& run);
    void reconcile(SyncRun& run);
    void finish(SyncRun& run);
    void endEarly(SyncRun& run, const std::string& why);
    void comeBack();

    SyncControls controls_{store()};
};

}  // namespace tallybrook
