#pragma once

#include "backup/BackupFolder.h"
#include "runtime/Clock.h"
#include "runtime/DateTime.h"
#include "runtime/InstanceLock.h"
#include "runtime/Progress.h"
#include "store/file/Connection.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <SQLiteCpp/SQLiteCpp.h>

// How the keeper comes to a logbook, and to its backups.
namespace tallybrook::keeper {

/// The lock of the program that may write the logbook. While this lives nobody else may.
class HeldLogbook {
public:
    /// Throws Refused where somebody else has it, or the folder cannot be used.
    explicit HeldLogbook(std::filesystem::path dataFolder);

    [[nodiscard]] const std::filesystem::path& dataFolder() const { return dataFolder_; }
    [[nodiscard]] std::filesystem::path file() const;
    /// Whether there is a logbook at all, be it damaged.
    [[nodiscard]] bool exists() const;
    /// Opens the logbook as the program itself does, and makes one where there is none: what a save that was
    /// cut off has left is undone. Throws Refused.
    [[nodiscard]] std::unique_ptr<Connection> open(const Clock& clock) const;

private:
    std::filesystem::path dataFolder_;
    InstanceLock lock_;
};

/// The logbook for reading: as it is now, or, while somebody else is using it, as it was in the newest backup
/// that is sound.
class ReadableLogbook {
public:
    /// Throws Refused where there is none, or neither it nor a backup can be read.
    ReadableLogbook(const std::filesystem::path& dataFolder, const Clock& clock);

    [[nodiscard]] const SQLite::Database& database() const;
    /// When the backup was made that is read in place of the logbook.
    [[nodiscard]] std::optional<DateTime> backupTime() const { return backupTime_; }
    /// What a person should know of it; empty where it is the logbook as it is now.
    [[nodiscard]] std::string note() const;

private:
    void readBackup(const std::filesystem::path& dataFolder);

    std::unique_ptr<HeldLogbook> held_;
    std::unique_ptr<Connection> connection_;
    std::unique_ptr<SQLite::Database> backup_;
    std::optional<DateTime> backupTime_;
};

/// The backups of a data folder.
BackupFolder backupsIn(const std::filesystem::path& dataFolder);

/// When its backups were made, the newest first.
std::vector<DateTime> newestFirst(const BackupFolder& folder);

/// The backup that a person calls by the beginning of its date and time, as in "2026-11-21" or "2026-11-21
/// 20.15.03", or by "newest". Throws Refused where there is none, or more than one.
DateTime backupCalled(const std::string& name, const BackupFolder& folder);

/// Opens a copy of a logbook for reading, and nothing of it is touched. Throws Refused where it is damaged or
/// no logbook of this version.
SQLite::Database openCopy(const std::filesystem::path& copy);

/// Whether the engine finds nothing wrong with a database. Throws Cancelled and SQLite::Exception.
bool isSound(const SQLite::Database& database, Progress& progress);

}  // namespace tallybrook::keeper
