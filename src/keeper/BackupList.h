#pragma once

#include "keeper/Access.h"
#include "keeper/Difference.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tallybrook::keeper {

/// Today's logbook, as far as it can be read.
struct Today {
    std::optional<Summary> summary = {};
    std::string note = {};  // what a person should know of it: that it is a backup's, or why there is none
};

/// A backup, as far as it can be read.
struct BackupEntry {
    DateTime time = kZeroDate;
    std::filesystem::path file = {};
    std::uintmax_t size = 0;                    // bytes
    std::optional<Summary> summary = {};        // nothing where it is damaged
    std::optional<Difference> difference = {};  // from today's logbook, where both can be read
    std::string trouble = {};                   // what is wrong with it

    /// The difference in words, or the trouble.
    [[nodiscard]] std::string inWords() const;
};

/// Reads today's logbook. Throws Cancelled, and Refused where there is no such folder.
Today todayIn(const std::filesystem::path& dataFolder, const Clock& clock, Progress& progress);

/// Reads one backup. Throws Cancelled.
BackupEntry readBackup(const BackupFolder& folder, DateTime time, const Today& today, Progress& progress);

/// Reads all backups of a data folder, the newest first. Throws as todayIn() does.
std::vector<BackupEntry> readBackups(const std::filesystem::path& dataFolder, const Today& today,
                                     Progress& progress);

}  // namespace tallybrook::keeper
