#include "keeper/BackupList.h"

#include "keeper/ExitStatus.h"
#include "runtime/DataHome.h"

#include <system_error>

namespace tallybrook::keeper {

namespace fs = std::filesystem;

std::string BackupEntry::inWords() const {
    return difference ? keeper::inWords(*difference) : trouble;
}

Today todayIn(const fs::path& dataFolder, const Clock& clock, Progress& progress) {
    if (!fs::is_directory(dataFolder))
        throw Refused(ExitStatus::Failed, "There is no such folder: " + dataFolder.string());
    try {
        const ReadableLogbook logbook(dataFolder, clock);
        return {.summary = summaryOf(logbook.database(), progress), .note = logbook.note()};
    } catch (const std::runtime_error& failure) {
        return {.note = failure.what()};
    }
}

BackupEntry readBackup(const BackupFolder& folder, DateTime time, const Today& today, Progress& progress) {
    BackupEntry entry{.time = time, .file = folder.existing(time)};
    std::error_code ignored;
    entry.size = fs::file_size(entry.file, ignored);
    try {
        entry.summary = summaryOf(openCopy(entry.file), progress);
        if (today.summary)
            entry.difference = differenceOf(*entry.summary, *today.summary);
        else
            entry.trouble = "today's logbook cannot be read";
    } catch (const std::runtime_error&) {
        entry.trouble = "this backup is damaged";
    }
    return entry;
}

std::vector<BackupEntry> readBackups(const fs::path& dataFolder, const Today& today, Progress& progress) {
    const BackupFolder folder = backupsIn(dataFolder);
    std::vector<BackupEntry> entries;
    for (const DateTime time : newestFirst(folder))
        entries.push_back(readBackup(folder, time, today, progress));
    return entries;
}

}  // namespace tallybrook::keeper
