#pragma once

#include "runtime/DateTime.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tallybrook {

/// The folder `Backups` beside a logbook, with the copies of it. A copy is named after the logbook and the
/// time at which it was made, as in "Tallybrook_DB 2026-11-21 20.15.03.mdb". Whatever bears another name is
/// left alone.
class BackupFolder {
public:
    explicit BackupFolder(const std::filesystem::path& logbook)
        : logbook_(logbook), path_(std::filesystem::absolute(logbook).parent_path() / "Backups") {}

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

    /// Makes the folder, for its owner alone, unless it is there; throws filesystem_error.
    void make() const;
    /// Where the backup of that time lies, if there is one.
    [[nodiscard]] std::filesystem::path existing(DateTime time) const { return path_ / nameFor(time); }
    /// What tells a backup from the others: its date and time as they stand in its name.
    [[nodiscard]] static std::string shortName(DateTime time);
    /// Where a backup that is made at that time is to lie; a second one of the same second takes the next
    /// that is free.
    [[nodiscard]] std::filesystem::path fileFor(DateTime time) const;

    /// The times of the backups there, in ascending order; none where the folder cannot be read.
    [[nodiscard]] std::vector<DateTime> times() const;
    /// Whether there is a backup of a logbook that was written last at that moment, and of that size.
    [[nodiscard]] bool holdsCopyOf(std::filesystem::file_time_type written, std::uintmax_t size) const;

    /// Removes what runs that were cut off have left.
    void removeUnfinished() const;
    /// Removes some of the backups that are no longer to be kept, if there are any.
    void thinOut(DateTime now) const;

private:
    [[nodiscard]] std::string nameFor(DateTime time) const;
    [[nodiscard]] std::optional<DateTime> timeIn(const std::string& name) const;

    std::filesystem::path logbook_;
    std::filesystem::path path_;
};

}  // namespace tallybrook
