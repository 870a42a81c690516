#include "shell/frmMain.h"

#include "shell/TBK_Globals.h"

namespace tallybrook {

frmMain::frmMain(Program& owner) : ProgramScreen(owner, "frmMain", "Main Menu") {
    leadsTo(mnuHHSetup, "frmHHSetup");
    leadsTo(mnuSyncPDA, "frmSyncPDA");
    leadsTo(mnuAddFromForm, "frmEvent", kAdd);
    leadsTo(mnuEditData, "frmEventList", kEdit);
    leadsTo(mnuDBTools, "frmDBTools");
    leadsTo(mnuReports, "frmReports");

    mnuExit.onClick = [this] { Exit_Confirm(program()); };
    setPrimary(mnuAddFromForm);
}

void frmMain::leadsTo(Menu& entry, const std::string& screen, Int16 mode) {
    entry.onClick = [this, screen, mode] {
        session().gMode = mode;
        goTo(screen);
    };
}

void frmMain::leadsTo(Menu& entry, const std::string& screen) {
    entry.onClick = [this, screen] { goTo(screen); };
}

void frmMain::goTo(const std::string& screen) {
    screens().hide(*this);
    screens().load(screen);
}

Layout frmMain::layout() {
    return layout::column({layout::space(), Layout(imgLogo).centred(), Layout(lblTitle).centred()});
}

void frmMain::onLoad() {
    screens().show(*this);
}

void frmMain::onClose() {
    mnuExit.click();
}

}  // namespace tallybrook
