#include "keeper/Access.h"

#include "backup/Backups.h"
#include "keeper/ExitStatus.h"
#include "runtime/DataHome.h"
#include "runtime/RunTimeError.h"
#include "runtime/TextForms.h"
#include "store/file/Inspection.h"
#include "store/file/LogbookFile.h"
#include "store/file/UnlockedFile.h"
#include "store/sql/SchemaSteps.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>
#include <sqlite3.h>

namespace tallybrook::keeper {

namespace fs = std::filesystem;

namespace {

constexpr const char* kBusy =
    "Tallybrook is running, or another keeper is at work on this logbook. Please end it first; until then "
    "the "
    "keeper shows and exports, and changes nothing.";

InstanceLock lockOf(const fs::path& dataFolder) {
    try {
        return InstanceLock(lockIn(dataFolder));
    } catch (const RunTimeError&) {
        const bool isThere = fs::is_directory(dataFolder);
        throw Refused(ExitStatus::Failed,
                      (isThere ? "This folder cannot be written, so nobody can work on its logbook: "
                               : "There is no such folder: ") +
                          dataFolder.string());
    }
}

bool isInUse(const fs::path& dataFolder) {
    return fs::exists(lockIn(dataFolder)) && !lockOf(dataFolder).held();
}

[[noreturn]] void refuseCopy(const fs::path& copy, const std::string& why) {
    throw Refused(ExitStatus::BadInput, "The backup cannot be read: " + copy.string() + "\n" + why);
}

}  // namespace

HeldLogbook::HeldLogbook(fs::path dataFolder)
    : dataFolder_(std::move(dataFolder)), lock_(lockOf(dataFolder_)) {
    if (!lock_.held())
        throw Refused(ExitStatus::Busy, kBusy);
}

fs::path HeldLogbook::file() const {
    return logbookIn(dataFolder_);
}

bool HeldLogbook::exists() const {
    return fs::symlink_status(file()).type() != fs::file_type::not_found;
}

std::unique_ptr<Connection> HeldLogbook::open(const Clock& clock) const {
    try {
        return openLogbook(file(), {.backUp = [&](const fs::path& logbook) { backUpNow(logbook, clock); }});
    } catch (const LogbookRefused& refused) {
        throw Refused(ExitStatus::BadInput, refused.what());
    }
}

ReadableLogbook::ReadableLogbook(const fs::path& dataFolder, const Clock& clock) {
    if (isInUse(dataFolder)) {
        readBackup(dataFolder);
        return;
    }
    held_ = std::make_unique<HeldLogbook>(dataFolder);
    if (!held_->exists())
        throw Refused(ExitStatus::Failed, "There is no logbook in " + dataFolder.string());
    connection_ = held_->open(clock);
}

void ReadableLogbook::readBackup(const fs::path& dataFolder) {
    const BackupFolder folder = backupsIn(dataFolder);
    for (const DateTime time : newestFirst(folder)) {
        try {
            NoProgress nobody;
            backup_ = std::make_unique<SQLite::Database>(openCopy(folder.existing(time)));
            backupTime_ = time;
            if (isSound(*backup_, nobody))
                return;
        } catch (const Refused&) {
            continue;  // with the one before
        }
    }
    throw Refused(ExitStatus::Busy,
                  "Tallybrook is running, and there is no backup yet that could be read in place of its "
                  "logbook. Please end Tallybrook first.");
}

const SQLite::Database& ReadableLogbook::database() const {
    return backup_ ? *backup_ : connection_->database();
}

std::string ReadableLogbook::note() const {
    if (!backupTime_)
        return {};
    return fmt::format("Tallybrook is running. This is from its newest backup, of {}.",
                       dateText(*backupTime_));
}

BackupFolder backupsIn(const fs::path& dataFolder) {
    return BackupFolder(logbookIn(dataFolder));
}

std::vector<DateTime> newestFirst(const BackupFolder& folder) {
    std::vector<DateTime> times = folder.times();
    std::ranges::reverse(times);
    return times;
}

DateTime backupCalled(const std::string& name, const BackupFolder& folder) {
    std::vector<DateTime> times = folder.times();
    if (times.empty())
        throw Refused(ExitStatus::BadInput, "There are no backups yet in " + folder.path().string());
    if (name == "newest")
        return times.back();
    const auto isCalledSo = [&](DateTime time) { return BackupFolder::shortName(time).starts_with(name); };
    std::erase_if(times, [&](DateTime time) { return !isCalledSo(time); });
    if (times.empty())
        throw Refused(ExitStatus::BadInput,
                      fmt::format("There is no backup {} in {}", name, folder.path().string()));
    if (times.size() > 1)
        throw Refused(
            ExitStatus::BadInput,
            fmt::format("There are {} backups that begin with {}. Please tell the time as well, as in {}.",
                        times.size(), name, BackupFolder::shortName(times.back())));
    return times.front();
}

SQLite::Database openCopy(const fs::path& copy) {
    try {
        SQLite::Database database = openAsItStands(copy);
        const int newest = newestSchema(schemaSteps());
        if (schemaOf(database) > newest)
            refuseCopy(copy, "It was written by a newer version of Tallybrook. Please update the program.");
        if (!hasAllColumns(database))
            refuseCopy(copy, "It is damaged, or is no logbook of this version.");
        inspectTables(copy, database, newest);
        return database;
    } catch (const LogbookRefused&) {
        refuseCopy(copy, "It is damaged: its end is missing.");
    } catch (const SQLite::Exception& failure) {
        refuseCopy(copy, fmt::format("It is damaged, or is no logbook: {}.", failure.what()));
    }
}

bool isSound(const SQLite::Database& database, Progress& progress) {
    constexpr int kSteps = 100000;  // of the engine's, between two looks
    sqlite3* const handle = database.getHandle();
    sqlite3_progress_handler(
        handle, kSteps, [](void* asked) { return static_cast<Progress*>(asked)->isCancelled() ? 1 : 0; },
        &progress);
    const std::shared_ptr<void> untilHere(
        nullptr, [handle](void*) { sqlite3_progress_handler(handle, 0, nullptr, nullptr); });
    try {
        SQLite::Statement check(database, "PRAGMA integrity_check(1)");
        return check.executeStep() && check.getColumn(0).getString() == "ok";
    } catch (const SQLite::Exception& failure) {
        if (failure.getErrorCode() == SQLITE_INTERRUPT)
            throw Cancelled{};
        if (failure.getErrorCode() == SQLITE_CORRUPT || failure.getErrorCode() == SQLITE_NOTADB)
            return false;
        throw;
    }
}

}  // namespace tallybrook::keeper
