#include "handheld/frmSyncPDA.h"

#include "handheld/ReadCDB.h"
#include "handheld/SyncFiles.h"
#include "maintenance/modDBUtils.h"
#include "shell/SharedFile.h"
#include "shell/TBK_Globals.h"

namespace tallybrook {

namespace {

constexpr std::string_view kSeparator = "**************************************************************";

MessageBox notice(std::string text, std::string title) {
    return {.text = std::move(text), .title = std::move(title), .icon = Icon::Information};
}

}  // namespace

frmSyncPDA::frmSyncPDA(Program& owner) : ProgramScreen(owner, "frmSyncPDA", "Synchronize PDA") {
    cmdAddPDA.onClick = [this] { cmdAddPDA_Click(); };
    cmdRetMain.onClick = [this] { cmdRetMain_Click(); };
    setPrimary(cmdAddPDA);
}

Layout frmSyncPDA::layout() {
    return layout::column({layout::space(), Layout(imgTBK).centred(), Layout(lblTitle).centred(),
                           layout::buttons({cmdAddPDA, cmdRetMain, layout::space(), cmdExit}).centred(),
                           layout::space()});
}

void frmSyncPDA::onLoad() {
    screens().show(*this);
}

void frmSyncPDA::onClose() {
    cmdRetMain.click();
}

void frmSyncPDA::onUnload() {
    controls_.adoTBKEvent.drop();
}

void frmSyncPDA::cmdRetMain_Click() {
    if (ask(question("Return to the main menu?", "Return to Main Menu")) == Answer::Yes)
        returnToMain(program());
}

void frmSyncPDA::cmdAddPDA_Click() {
    SyncRun run(program(), *this, controls_);
    run.procedure("cmdAddPDA", [&] {
        begin(run);
        Prep_Sync(run);
        Prep_Files(run);
        if (ReadCDBEvents(run))
            return endEarly(run, "There were no events to process.");
        if (ReadCDBGames(run))
            return endEarly(run, "There were no games to process.");
        ReadCDBFrames(run);
        reconcile(run);
        Sync_Cleanup(run);
        finish(run);
    });
}

void frmSyncPDA::begin(SyncRun& run) {
    const std::string logFile = run.runLogFile().string();
    run.log.master.open(openSharedFile(program(), run.masterLogFile(), TextWriter::Mode::Append));
    run.log.run.open(openSharedFile(program(), logFile));
    run.log.Get_Stamp(program().clock);
    Write_Log(lines({kSeparator, "Tallybrook PDA Sync started at " + run.log.stamp(),
                     "Timestamp: " + run.SyncStamp, "Log file: " + logFile}),
              run.log.master);
    Write_Log("PDA Sync started at " + run.log.stamp(), run.log.run);
    ask(notice("This will synchronize the data from your handheld device to the Tallybrook database.",
               "PDA Sync"));
    screens().hide(*this);
    program().display.pointer(Pointer::Busy);
    program().backups().begin();
}

void frmSyncPDA::reconcile(SyncRun& run) {
    run.logStamped("Starting database reconciliaton at ");
    DB_Check(program());
    run.logStamped("Database reconciliaton complete at ");
}

void frmSyncPDA::finish(SyncRun& run) {
    comeBack();
    ask(notice(lines({"Sync is complete. Details can be viewed in: ", run.runLogFile().string() + ".",
                      "You should sync your PDA at this time to update your PDA database."}),
               "Sync Complete"));
    cmdAddPDA.setEnabled(false);
    run.log.run.close();
    run.log.master.close();
}

void frmSyncPDA::endEarly(SyncRun& run, const std::string& why) {
    removeUnusedFiles(run);
    comeBack();
    ask(notice(why, "Sync Complete"));
    run.log.run.close();
    run.log.master.close();
}

void frmSyncPDA::comeBack() {
    screens().show(*this);
    program().display.pointer(Pointer::Default);
}

}  // namespace tallybrook
