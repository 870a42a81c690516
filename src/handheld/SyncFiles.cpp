#include "handheld/SyncFiles.h"

#include "handheld/SyncRun.h"
#include "shell/Configuration.h"
#include "shell/SharedFile.h"
#include "shell/TBK_Globals.h"

#include <fmt/format.h>

namespace tallybrook {

namespace {

constexpr std::string_view kCdb = ".cdb";
constexpr std::string_view kTmp = ".tmp";
constexpr std::string_view kOut = ".out";

bool isPalm(const SyncRun& run) {
    return run.program.session.gHHType == "Palm";
}

/// Whether the run may go on. Without a configuration file it is told so, and left.
bool hasConfiguration(SyncRun& run) {
    const SessionState& session = run.program.session;
    if ((!session.gHHType.empty() && !session.gHHSyncDir.empty()) || Read_Config(run.program))
        return true;
    run.program.display.messageBox(
        {.text = "No PDA configuration was read. Click OK to return to the main menu, and from the main menu "
                 "select 'File -> Handheld Setup' to set up your PDA for use with Tallybrook.",
         .title = "PDA Configuration Error",
         .icon = Icon::Critical});
    Write_Log("No PDA configuration file.", run.log.master);
    run.leaveForMain();
    return false;
}

void archiveFiles(SyncRun& run) {
    if (isPalm(run)) {
        for (const SyncFile* const file : run.files())
            copySharedFile(run.program, run.handheldFile(*file), run.workingFile(*file, kCdb));
    }
    for (const SyncFile* const file : run.files())
        copySharedFile(run.program, run.workingFile(*file, kCdb), run.archiveFile(*file));
    Write_Log(fmt::format("Event CDB File archived to: {}\r\nGame CDB File archived to: {}\r\n"
                          "Frame CDB File archived to: {}\r\n",
                          run.archiveFile(run.event).string(), run.archiveFile(run.game).string(),
                          run.archiveFile(run.frame).string()),
              run.log.run);
}

void openFiles(SyncRun& run) {
    for (const SyncFile* const file : run.files())
        copySharedFile(run.program, run.workingFile(*file, kCdb), run.workingFile(*file, kTmp));
    for (SyncFile* const file : run.files())
        file->tmp.open(run.workingFile(*file, kTmp));
    if (!run.DeleteFromPDA)
        return;
    for (SyncFile* const file : run.files())
        file->out.open(openSharedFile(run.program, run.workingFile(*file, kOut), TextWriter::Mode::Overwrite,
                                      file->tmp->encoding()));
}

void deleteFiles(SyncRun& run, std::string_view extension) {
    for (const SyncFile* const file : run.files())
        deleteFile(run.workingFile(*file, extension));
}

/// By now every row is in the logbook's file, so nothing that is replaced here is needed any more.
void replaceFiles(SyncRun& run) {
    deleteFiles(run, kCdb);
    for (const SyncFile* const file : run.files())
        copySharedFile(run.program, run.workingFile(*file, kOut), run.workingFile(*file, kCdb));
    if (isPalm(run)) {
        if (run.program.session.gHHSyncDir.empty())
            throw RunTimeError(error::kPathNotFound);
        for (const SyncFile* const file : run.files())
            copySharedFile(run.program, run.workingFile(*file, kCdb), run.handheldFile(*file));
    }
    deleteFiles(run, kOut);
}

}  // namespace

void Prep_Sync(SyncRun& run) {
    run.procedure("Prep_Sync", [&] {
        run.DeleteFromPDA =
            run.program.display.messageBox(question("Delete data from PDA on the next synchronization?",
                                                    "Delete PDA Data")) == Answer::Yes;
        Write_Log(run.DeleteFromPDA ? "PDA data to be deleted on next sync." : "PDA data to be retained.",
                  run.log.run);
    });
}

void Prep_Files(SyncRun& run) {
    run.procedure("Prep_Files", [&] {
        run.logStamped("", ": Preparing CDB files");
        if (!hasConfiguration(run))
            return;
        archiveFiles(run);
        openFiles(run);
    });
}

void Sync_Cleanup(SyncRun& run) {
    run.procedure("Sync_Cleanup", [&] {
        deleteFiles(run, kTmp);
        if (run.DeleteFromPDA)
            replaceFiles(run);
    });
}

void removeUnusedFiles(SyncRun& run) {
    for (SyncFile* const file : run.files())
        file->tmp.close();
    deleteFiles(run, kTmp);
    if (!run.DeleteFromPDA)
        return;
    for (SyncFile* const file : run.files())
        file->out.close();
    deleteFiles(run, kOut);
}

}  // namespace tallybrook
