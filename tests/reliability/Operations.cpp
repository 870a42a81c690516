#include "reliability/Operations.h"

#include "handheld/ExportFiles.h"
#include "support/SameText.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <map>
#include <string>

#include <SQLiteCpp/SQLiteCpp.h>

namespace tallybrook::test {

namespace {

using Files = std::map<std::string, std::string>;

constexpr const char* kDatabase = "Tallybrook_DB.mdb";

/// The rows that the import adds, each below the one before.
constexpr const char* kImported[] = {"tblEventInfo 2", "tblGameInfo 2", "tblFrameInfo 3"};

namespace fs = std::filesystem;

bool hasEachSaveOrNot(const SaveHistory& clean, const Contents& contents, const fs::path&) {
    return clean.canLeave(contents);
}

bool hasEachFieldOrNot(const SaveHistory& clean, const Contents& contents, const fs::path&) {
    return clean.canLeaveInParts(contents);
}

/// Fills a logbook, and makes the backup of it that the next start would make.
void makeLogbook(const fs::path& data, const std::function<void(Visit&)>& fill) {
    {
        Visit visit(data);
        visit.start();
        fill(visit);
    }
    fs::last_write_time(data / kDatabase, fs::file_time_type::clock::now() - std::chrono::hours{1});
    Visit visit(data);
    visit.start();
    visit.finishBackup();
}

void addEvent(Visit& visit) {
    visit.click("mnuAddFromForm");
    visit.type("txtEvent", "Practice");
    visit.click("cmdPrevious");
}

void makeUsedLogbook(const fs::path& data) {
    makeLogbook(data, addEvent);
}

void fillInEvent(Visit& visit) {
    visit.click("mnuAddFromForm");
    visit.type("txtEvent", "Thursday League");
    visit.type("txtCenter", "Brookside Lanes");
    visit.type("txtLoc", "Millford");
    visit.type("txtComment", "Second night of the season");
}

void fillInGame(Visit& visit) {
    visit.type("txtStartLane", "13");
    visit.type("txtGameScore", "170");
    visit.type("txtLaneCond", "dry");
}

void comeToGame(Visit& visit) {
    fillInEvent(visit);
    visit.click("cmdUpdGames");
    fillInGame(visit);
}

void comeToFrame(Visit& visit) {
    comeToGame(visit);
    visit.click("cmdUpdFrame");
    visit.type("txtBallUsed", "Blue 15 lb");
    visit.click("optFirstYes");
}

void addFrames(Visit& visit) {
    comeToFrame(visit);
    visit.click("cmdNextFrame");
    visit.click("optFirstYes");
}

/// An event of one game of two frames, and another event.
void makeFullLogbook(const fs::path& data) {
    makeLogbook(data, [](Visit& visit) {
        addEvent(visit);
        addFrames(visit);
        visit.returnToMain();
    });
}

/// The event of the frames, as it is deleted from the list.
void chooseEvent(Visit& visit) {
    visit.click("mnuEditData");
    visit.row(2);
}

void deleteEvent(Visit& visit) {
    visit.click("cmdDelRecord");
    visit.returnToMain();
}

void makeLogbookOfOneGame(const fs::path& data) {
    makeLogbook(data, [](Visit& visit) {
        addFrames(visit);
        visit.returnToMain();
    });
}

/// What another program has left: rows without their event, and wrong counts.
void spoil(const fs::path& logbook) {
    SQLite::Database database(logbook.string(), SQLite::OPEN_READWRITE);
    database.exec("UPDATE tblEventInfo SET fldGmsRecorded = 7");
    database.exec("UPDATE tblGameInfo SET fldScoreType = 'L', fldFrmsRecorded = 9");
    database.exec("INSERT INTO tblGameInfo (fldSessionNum, fldGameNum) VALUES (99, 1)");
    database.exec(
        "INSERT INTO tblFrameInfo (fldSessionNum, fldGameNum, fldFrameNum) VALUES (99, 1, 1), (99, 1, 2)");
}

void makeLogbookToMend(const fs::path& data) {
    makeLogbookOfOneGame(data);
    spoil(data / kDatabase);
    makeLogbook(data, [](Visit&) {});
    std::ofstream(data / "DB_Report.txt") << "An earlier check.\r\n";
}

void openTools(Visit& visit) {
    visit.click("mnuDBTools");
    visit.display.answers["Database Check"] = Answer::Yes;
}

void check(Visit& visit) {
    visit.click("cmdDBCheck");
    visit.returnToMain();
}

Files exportFiles() {
    const Exports lines = smallExports();
    return {{"tblEvent.cdb", withLineEnds(lines.events)},
            {"tblGame.cdb", withLineEnds(lines.games)},
            {"tblFrame.cdb", withLineEnds(lines.frames)}};
}

fs::path handheld(const fs::path& data) {
    return data / "Hand";
}

void openImport(Visit& visit) {
    visit.program().session.gHHType = "Palm";
    visit.program().session.gHHSyncDir = handheld(visit.program().dataFolder).string();
    visit.click("mnuSyncPDA");
}

void importFiles(Visit& visit) {
    visit.click("cmdAddPDA");
    visit.returnToMain();
}

/// What stands in the archive is whole.
bool isArchiveWhole(const fs::path& data) {
    return std::ranges::all_of(exportFiles(), [&](const auto& file) {
        const std::string table = fs::path(file.first).stem().string();
        const fs::path copy = data / "TBRK" / "PDA DB Archive" / (table + "-11-14-2026-2155.cdb");
        return !fs::exists(copy) || bytesOf(copy) == file.second;
    });
}

/// A row has come in whole or not at all, and none without the one above it. What is not in the logbook is on
/// the handheld.
bool isImportedOrOnHandheld(const SaveHistory& clean, const Contents& contents, const fs::path& data) {
    const bool isComplete = contents.size() == clean.atEnd().size();
    const auto firstMissing =
        std::ranges::find_if(kImported, [&](const char* row) { return !contents.contains(row); });
    const bool isOrphan = std::any_of(firstMissing, std::end(kImported),
                                      [&](const char* row) { return contents.contains(row); });
    return isArchiveWhole(data) && (isOnHandheld(data) || isComplete) && !isOrphan &&
           clean.canLeaveInParts(contents);
}

void openStatistics(Visit& visit) {
    visit.click("mnuReports");
    visit.click("mnuStats");
    visit.display.chosen = visit.program().dataFolder / "statistics.txt";
}

void writeStatistics(Visit& visit) {
    visit.click("cmdGenReport");
    visit.returnToMain();
}

/// Chooses the file of the report, and the handheld that it is copied to.
void openReports(Visit& visit) {
    visit.display.chosen = visit.program().dataFolder / "report.txt";
    visit.program().session.gHHType = "Palm";
    visit.program().session.gHHSyncDir = handheld(visit.program().dataFolder).string();
    visit.click("mnuReports");
}

void findEvent(Visit& visit) {
    openReports(visit);
    visit.click("mnuRptEvent");
    visit.pick("cboListField(0)", "Event Name");
    visit.pick("cboSearchOp(0)", "is");
    visit.type("txtSearchVal(0)", "Thursday League");
    visit.click("cmdSearch");
    visit.click("optSyncPDA(0)");
}

void findGame(Visit& visit) {
    openReports(visit);
    visit.click("mnuRptGame");
    visit.pick("cboSearchFld(0)", "Game Score");
    visit.pick("cboSearchOp(0)", "is equal to");
    visit.type("txtSearchVal(0)", "170");
    visit.click("cmdSearch");
}

void writeReport(Visit& visit) {
    visit.click("cmdGetRecord");
    visit.returnToMain();
}

void changeConfiguration(Visit& visit) {
    visit.click("mnuHHSetup");
    visit.click("optHHType(0)");
    visit.type("txtHHDir", "/sync");
}

void saveConfiguration(Visit& visit) {
    visit.click("cmdSaveChg");
    visit.returnToMain();
}

/// The further event that proves that the program goes on may be in it.
bool isBackupOf(const fs::path& backup, const Contents& contents) {
    Contents found = contentsOf(backup);
    std::erase_if(found, [&](const auto& row) { return !contents.contains(row.first); });
    return found == contents;
}

void nothing(Visit&) {}

void makeNothing(const fs::path&) {}

void start(Visit& visit) {
    visit.start();
}

/// A logbook that was written since the last backup.
void makeChangedLogbook(const fs::path& data) {
    makeUsedLogbook(data);
    fs::last_write_time(data / kDatabase, fs::file_time_type::clock::now() - std::chrono::minutes{1});
}

void startAndBackUp(Visit& visit) {
    visit.start();
    visit.finishBackup();
}

/// Each backup holds what the logbook holds.
bool hasGoodBackups(const SaveHistory& clean, const Contents& contents, const fs::path& data) {
    const fs::directory_iterator backups(data / "Backups");
    return contents == clean.atStart() && std::all_of(begin(backups), end(backups), [&](const auto& backup) {
               return backup.path().extension() != ".mdb" || isBackupOf(backup.path(), contents);
           });
}

std::function<void(Visit&)> startedWith(void (*prepare)(Visit&)) {
    return [prepare](Visit& visit) {
        visit.start();
        prepare(visit);
    };
}

void leaveByPrevious(Visit& visit) {
    visit.click("cmdPrevious");
    visit.returnToMain();
}

void saveFrame(Visit& visit) {
    visit.click("optFirstYes");
    visit.click("cmdNextFrame");
}

}  // namespace

void makeLogbookWithHandheld(const fs::path& data) {
    makeLogbookOfOneGame(data);
    fs::create_directory(handheld(data));
    for (const auto& [name, bytes] : exportFiles())
        std::ofstream(handheld(data) / name, std::ios::binary) << bytes;
    std::ofstream(data / "TBRK" / "PDASyncLog-Master.log") << "An earlier run.\r\n";
}

bool isOnHandheld(const fs::path& data) {
    return std::ranges::all_of(exportFiles(), [&](const auto& file) {
        const fs::path there = handheld(data) / file.first;
        return fs::exists(there) && bytesOf(there) == file.second;
    });
}

bool isImported(const Contents& contents) {
    const auto holds = [&](const std::string& table, const std::string& recordId) {
        return std::ranges::any_of(contents, [&](const auto& row) {
            return row.first.starts_with(table) && row.second.at("fldHHRecordID") == recordId;
        });
    };
    return holds("tblEventInfo", EventLine{}.recordId) && holds("tblGameInfo", GameLine{}.recordId) &&
           holds("tblFrameInfo", FrameLine{}.recordId);
}

const std::vector<std::function<void(Visit&)>>& dayWithTheProgram() {
    static const std::vector<std::function<void(Visit&)>> steps{[](Visit& visit) {
                                                                    fillInEvent(visit);
                                                                    visit.click("cmdUpdGames");
                                                                },
                                                                [](Visit& visit) {
                                                                    fillInGame(visit);
                                                                    visit.click("cmdUpdFrame");
                                                                },
                                                                saveFrame,
                                                                saveFrame,
                                                                saveFrame,
                                                                [](Visit& visit) { visit.returnToMain(); },
                                                                [](Visit& visit) {
                                                                    openImport(visit);
                                                                    importFiles(visit);
                                                                },
                                                                [](Visit& visit) {
                                                                    chooseEvent(visit);
                                                                    deleteEvent(visit);
                                                                },
                                                                [](Visit& visit) {
                                                                    openTools(visit);
                                                                    check(visit);
                                                                }};
    return steps;
}

const std::vector<Operation>& operations() {
    static const std::vector<Operation> all{
        {.name = "SaveAnEvent",
         .devices = {Device::Engine},
         .makeLogbook = makeUsedLogbook,
         .prepare = startedWith(fillInEvent),
         .act = leaveByPrevious,
         .isLeft = hasEachSaveOrNot},
        {.name = "SaveAGame",
         .devices = {Device::Engine},
         .makeLogbook = makeUsedLogbook,
         .prepare = startedWith(comeToGame),
         .act = leaveByPrevious,
         .isLeft = hasEachSaveOrNot},
        {.name = "SaveAFrame",
         .devices = {Device::Engine},
         .makeLogbook = makeUsedLogbook,
         .prepare = startedWith(comeToFrame),
         .act = leaveByPrevious,
         .isLeft = hasEachSaveOrNot},
        {.name = "DeleteAnEvent",
         .devices = {Device::Engine},
         .makeLogbook = makeFullLogbook,
         .prepare = startedWith(chooseEvent),
         .act = deleteEvent,
         .isLeft = hasEachSaveOrNot},
        {.name = "Check",
         .devices = {Device::Engine, Device::TextFiles},
         .makeLogbook = makeLogbookToMend,
         .prepare = startedWith(openTools),
         .act = check,
         .isLeft = hasEachFieldOrNot},
        {.name = "Import",
         .devices = {Device::Engine, Device::TextFiles},
         .makeLogbook = makeLogbookWithHandheld,
         .prepare = startedWith(openImport),
         .act = importFiles,
         .isLeft = isImportedOrOnHandheld,
         .mayEnd = true},
        {.name = "FirstStart",
         .devices = {Device::Engine, Device::TextFiles},
         .makeLogbook = makeNothing,
         .prepare = nothing,
         .act = start,
         .isLeft = hasEachSaveOrNot,
         .mayEnd = true},
        {.name = "Start",
         .devices = {Device::Engine, Device::TextFiles},
         .makeLogbook = makeUsedLogbook,
         .prepare = nothing,
         .act = start,
         .isLeft = hasEachSaveOrNot,
         .mayEnd = true,
         .onlyReads = true},
        {.name = "Backup",
         .devices = {Device::Backup, Device::BackupFolder},
         .makeLogbook = makeChangedLogbook,
         .prepare = nothing,
         .act = startAndBackUp,
         .isLeft = hasGoodBackups},
        {.name = "StatisticalReport",
         .devices = {Device::Engine, Device::TextFiles},
         .makeLogbook = makeLogbookOfOneGame,
         .prepare = startedWith(openStatistics),
         .act = writeStatistics,
         .isLeft = hasEachSaveOrNot},
        {.name = "EventReport",
         .devices = {Device::Engine, Device::TextFiles},
         .makeLogbook = makeLogbookWithHandheld,
         .prepare = startedWith(findEvent),
         .act = writeReport,
         .isLeft = hasEachSaveOrNot},
        {.name = "GameReport",
         .devices = {Device::Engine, Device::TextFiles},
         .makeLogbook = makeLogbookOfOneGame,
         .prepare = startedWith(findGame),
         .act = writeReport,
         .isLeft = hasEachSaveOrNot},
        {.name = "Configuration",
         .devices = {Device::TextFiles},
         .makeLogbook = makeLogbookOfOneGame,
         .prepare = startedWith(changeConfiguration),
         .act = saveConfiguration,
         .isLeft = hasEachSaveOrNot,
         .mayEnd = true},
    };
    return all;
}

}  // namespace tallybrook::test
