#pragma once

#include "handheld/SyncRun.h"
#include "shell/ProgramScreen.h"
#include "shell/StandardCommands.h"

#include <string>

namespace tallybrook {

/// Where the data of a handheld come into the logbook.
class frmSyncPDA : public ProgramScreen {
public:
    explicit frmSyncPDA(Program& owner);

    Picture imgTBK{*this, "imgTBK", "logo.svg", 64};
    Label lblTitle{*this, "lblTitle", "Synchronize PDA", LabelLook::Heading};

    Button cmdAddPDA{*this, "cmdAddPDA", "Add &PDA Data"};
    MainButton cmdRetMain{program(), *this, {.name = "cmdRetMain", .caption = "Main Men&u", .tip = ""}};
    ExitButton cmdExit{program(), *this, {.caption = "&Exit", .tip = ""}};

    FileMenu mnuFile{*this, cmdExit};
    Menu mnuCommands{*this, "mnuCommands", "&Commands"};
    Menu mnuSyncPDA{mnuCommands, "mnuSyncPDA", cmdAddPDA};
    Menu mnuRetMain{mnuCommands, "mnuRetMain", cmdRetMain};
    HelpMenu mnuHelp{program(), *this, {.aboutCaption = "&About Tallybrook"}};

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
