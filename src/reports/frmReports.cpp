#include "reports/frmReports.h"

#include "shell/OpenReport.h"
#include "shell/ReportsFolder.h"
#include "shell/TBK_Globals.h"

namespace tallybrook {

frmReports::frmReports(Program& owner) : ProgramScreen(owner, "frmReports", "Reports") {
    leadsTo(mnuRptEvent, "frmSearchEvents");
    leadsTo(mnuRptGame, "frmSearchGames");
    leadsTo(mnuStats, "frmEventStats");
    mnuOpen.onClick = [this] { openReport(program(), cdlReport, "Reports, mnuOpen."); };
    mnuExit.onClick = [this] { Exit_Confirm(program()); };
    mnuRetMain.onClick = [this] { mnuRetMain_Click(); };
    setPrimary(mnuRptEvent);
}

void frmReports::leadsTo(Menu& entry, const std::string& screen) {
    entry.onClick = [this, screen] {
        screens().hide(*this);
        screens().load(screen);
    };
}

Layout frmReports::layout() {
    return layout::column({layout::space(), Layout(imgTbrk).centred(), Layout(lblTitle).centred()});
}

void frmReports::onLoad() {
    session().gMode = kReport;
    cdlReport.folder = reportsFolder();
    cdlReport.filter = "Text Files (*.txt)|*.txt";
    screens().show(*this);
}

void frmReports::onClose() {
    screens().unload(*this);
}

void frmReports::onUnloaded() {
    screens().showLast();
}

void frmReports::mnuRetMain_Click() {
    screens().unload(*this);
    returnToMain(program());
}

}  // namespace tallybrook
