#pragma once

#include "controls/Lists.h"
#include "runtime/MountedVolumes.h"
#include "shell/ProgramScreen.h"
#include "shell/StandardCommands.h"

namespace tallybrook {

/// Where the kind of handheld and the directory of its synchronisation software are set.
class frmHHSetup : public ProgramScreen {
public:
    explicit frmHHSetup(Program& owner);

    Picture imgLogo{*this, "imgLogo", "logo.svg"};
    Label lblTitle{*this, "lblTitle", "Handheld Setup", LabelLook::Heading};

    GroupBox fraHHType{*this, "fraHHType", "Handheld Type"};
    OptionGroup handheldTypes;
    ControlArray<OptionButton> optHHType;

    GroupBox fraHHDir{*this, "fraHHDir", "Synchronization Directory"};
    TextBox txtHHDir{fraHHDir, "txtHHDir"};
    DriveList drvHHDir{fraHHDir, "drvHHDir", mountedVolumes()};
    FolderList dirHHDir{fraHHDir, "dirHHDir", {.lines = 10}};
    Label lblDir{fraHHDir, "lblDir", "Sync Directory:", txtHHDir};
    Label lblSelDrive{fraHHDir, "lblSelDrive", "Select Drive:", drvHHDir};
    Label lblSelDir{fraHHDir, "lblSelDir", "Select Folder:", dirHHDir};

    Button cmdSaveChg{*this, "cmdSaveChg", "&Save"};
    MainButton cmdMain{program(), *this, {.tip = ""}};
    ExitButton cmdExit{program(), *this, {.tip = ""}};

    Menu mnuHHSetupFile{*this, "mnuHHSetupFile", "&File"};
    Menu mnuHHSetupSave{mnuHHSetupFile, "mnuHHSetupSave", "&Save"};
    Menu mnuHHSetupMain{mnuHHSetupFile, "mnuHHSetupMain", cmdMain};
    Menu mnuHHSetupExit{mnuHHSetupFile, "mnuHHSetupExit", cmdExit};
    Menu mnuHHSetupHelp{*this, "mnuHHSetupHelp", "&Help"};
    Menu mnuHHSetupAbout{mnuHHSetupHelp, "mnuHHSetupAbout", "&About Tallybrook"};
    Menu mnhHHSetupTBKHelp{mnuHHSetupHelp, "mnhHHSetupTBKHelp", "Tallybrook Help"};

    Layout layout() override;
    void onLoad() override;
    void onClose() override;
    /// What its entry does not do.
    void onHelp() override { program().display.help(HelpTopic::Contents); }

private:
    void showConfiguration(int type);
    void showNoConfiguration();
    void cmdSaveChg_Click();
};

}  // namespace tallybrook
