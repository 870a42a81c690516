#include "handheld/SyncRun.h"

#include "shell/TBK_Globals.h"

#include <fmt/format.h>

namespace tallybrook {

namespace fs = std::filesystem;

SyncControls::SyncControls(Store& store)
    : adoTBKEvent(store),
      games(store, "tblGameInfo",
            {"fldSessionNum", "fldGameNum", "fldLanePair", "fldLeftLane", "fldRightLane", "fldStartLane",
             "fldGameScore", "fldLaneCond", "fldComment", "fldScoreType", "fldHHRecordID", "fldBowlHand",
             "fldFrmsRecorded"}),
      frames(store, "tblFrameInfo",
             {"fldSessionNum", "fldGameNum", "fldFrameNum", "fldLaneBowled", "fldBallUsed", "fldFootPos",
              "fldLaneTgt", "fldFirstBallRes", "fldSecondBallRes", "fldFillBallRes", "fldComment",
              "fldLineScore", "fldHHRecordID"}) {
    adoTBKEvent.setRecordSource("SELECT * FROM tblEventInfo");
}

SyncRun::SyncRun(Program& owner, Screen& screen, SyncControls& controls)
    : program(owner), form(screen), SyncStamp(syncStamp(owner.clock.now())), controls_(controls) {}

SyncControls& SyncRun::controls() const {
    if (!form.isLoaded())
        throw RunTimeError(error::kObjectNotSet);
    return controls_;
}

fs::path SyncRun::workingFile(const SyncFile& file, std::string_view extension) const {
    return workingFolder() / fmt::format("{}{}", file.format.file, extension);
}

fs::path SyncRun::archiveFile(const SyncFile& file) const {
    return archiveFolder() / fmt::format("{}-{}.cdb", file.format.file, SyncStamp);
}

fs::path SyncRun::handheldFile(const SyncFile& file) const {
    return program.session.gHHSyncDir + fs::path::preferred_separator +
           fmt::format("{}.cdb", file.format.file);
}

fs::path SyncRun::masterLogFile() const {
    return workingFolder() / "PDASyncLog-Master.log";
}

fs::path SyncRun::runLogFile() const {
    return archiveFolder() / fmt::format("PDA_SyncLog-{}.txt", SyncStamp);
}

void SyncRun::logStamped(std::string_view before, std::string_view behind) {
    log.Get_Stamp(program.clock);
    Write_Log(fmt::format("{}{}{}", before, log.stamp(), behind), log.run);
}

void SyncRun::giveUp(const RunTimeError& failure, std::string_view procedure) {
    const std::string text = failureText(failure, fmt::format("Sync PDA, {}.", procedure));
    try {
        log.run.flush();
    } catch (const RunTimeError&) {  // NOLINT(bugprone-empty-catch): the failure to be told is the first one
    }
    program.display.messageBox({.text = text, .title = "Database Error", .icon = Icon::Critical});
    Write_Log(text, log.master);
    leaveForMain();
}

void SyncRun::leaveForMain() {
    for (SyncFile* const file : files()) {
        file->tmp.abandon();
        file->out.abandon();
    }
    log.run.abandon();
    log.master.abandon();
    program.screens.unload(form);
    program.screens.load("frmMain");
    program.screens.show(*program.screens.find("frmMain"));
}

}  // namespace tallybrook
