#include "maintenance/frmDBTools.h"

#include "maintenance/modDBUtils.h"
#include "shell/OpenReport.h"
#include "shell/ReportsFolder.h"
#include "shell/TBK_Globals.h"

#include <algorithm>
#include <vector>

namespace tallybrook {

frmDBTools::frmDBTools(Program& owner) : ProgramScreen(owner, "frmDBTools", "Database Tools") {
    cmdDBCheck.onClick = [this] { cmdDBCheck_Click(); };
    cmdDBStats.onClick = [this] { DB_Stats(program()); };
    cmdRetMain.onClick = [this] { cmdRetMain_Click(); };
    setPrimary(cmdDBCheck);
    mnuFileOpen.onClick = [this] { openReport(program(), cdlDBTools, "DBTools, mnuFileOpen."); };
}

Layout frmDBTools::layout() {
    return layout::column(
        {layout::space(), Layout(imgTbrk).centred(), Layout(lblTitle).centred(),
         layout::buttons({cmdDBCheck, cmdDBStats, cmdRetMain, layout::space(), cmdExit}).centred(),
         layout::space()});
}

void frmDBTools::onLoad() {
    cdlDBTools.folder = reportsFolder();
    cdlDBTools.filter = "Text (*.txt) | .txt";
    screens().show(*this);
}

void frmDBTools::onClose() {
    cmdRetMain.click();
}

void frmDBTools::cmdDBCheck_Click() {
    const Answer answer = ask(question(
        lines({"This will perform a database consistency check.",
               "Depending on the size of your database, this can take several minutes.", "Proceed?"}),
        "Database Check"));
    if (answer != Answer::Yes)
        return;
    program().display.pointer(Pointer::Busy);
    program().backups().begin();
    DB_Check(program());
    program().display.pointer(Pointer::Default);
}

void frmDBTools::cmdRetMain_Click() {
    MessageBox box = question("Return to the main menu?", "Return to Main Menu", Icon::None);
    box.preset = Answer::No;
    if (ask(box) != Answer::Yes)
        return;
    // The main menu comes up after each screen that goes, and afresh after itself.
    std::vector<Screen*> loaded = screens().loaded();
    std::ranges::reverse(loaded);
    for (Screen* const screen : loaded) {
        screens().unload(*screen);
        if (Screen* const menu = screens().find("frmMain"))
            screens().show(*menu);
        else
            screens().load("frmMain");
    }
}

}  // namespace tallybrook
