#pragma once

#include "backup/Backup.h"
#include "backup/BackupFolder.h"
#include "runtime/Clock.h"
#include "store/Store.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace tallybrook {

/// Keeps copies of the logbook in the folder `Backups` beside it, made while the program goes on and writes.
/// The first deletion of a run begins one by itself, and waits until the logbook has been read, so that what
/// is deleted by mistake can be had back as it was.
class Backups {
public:
    /// `store` has the logbook open. Both it and `clock` must outlive this.
    Backups(Store& store, std::filesystem::path logbook, const Clock& clock);
    ~Backups();
    Backups(const Backups&) = delete;
    Backups& operator=(const Backups&) = delete;

    /// Begins a backup, unless the logbook is empty or there is one of it as it is. No transaction may be
    /// open. Raises no error: what goes wrong is told by takeFailure().
    void begin();
    /// Waits until the backup on its way, if any, is made or has failed.
    void finish();
    /// Why a backup failed, as a text for people; only the first time in a run.
    std::optional<std::string> takeFailure();

private:
    void beginChecked();
    [[nodiscard]] bool isEmpty();
    void noteFailure();
    [[nodiscard]] std::string failureText(const std::string& why) const;

    Store& store_;
    const std::filesystem::path logbook_;
    const Clock& clock_;
    const BackupFolder folder_;
    std::unique_ptr<Backup> backup_;  // the last one begun
    std::optional<std::string> failure_;
    bool isTold_ = false;
};

/// Makes a backup of a logbook that stands still, with its lock held, and returns once it is proved. Throws
/// std::runtime_error, with what() for people, where that cannot be done.
void backUpNow(const std::filesystem::path& logbook, const Clock& clock);

}  // namespace tallybrook
