#include "keeper/Restore.h"

#include "backup/Backups.h"
#include "backup/Contents.h"
#include "keeper/EventRows.h"
#include "keeper/ExitStatus.h"
#include "runtime/RegularFile.h"
#include "runtime/TextFile.h"
#include "runtime/UnfinishedFile.h"
#include "store/file/Journal.h"
#include "store/file/UnlockedFile.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include <fcntl.h>
#include <fmt/format.h>

namespace tallybrook::keeper {

namespace fs = std::filesystem;

namespace {

/// Copies the bytes of a file over one that is there, and brings them to the disk.
void copyBytes(const fs::path& from, const fs::path& to, Progress& progress) {
    constexpr std::size_t kAtOnce = 1 << 16;
    const RegularFile source(from, O_RDONLY);
    const RegularFile target(to, O_WRONLY);
    progress.begin("Copying the backup", static_cast<std::int64_t>(fs::file_size(from)));
    std::string bytes(kAtOnce, '\0');
    std::int64_t done = 0;
    while (const std::size_t count = source.read(bytes.data(), bytes.size())) {
        target.write({bytes.data(), count});
        progress.reach(done += static_cast<std::int64_t>(count));
    }
    target.bringToDisk();
}

void requireSound(const SQLite::Database& database, const fs::path& backup, Progress& progress) {
    if (!isSound(database, progress))
        throw Refused(ExitStatus::BadInput,
                      "The backup is damaged: " + backup.string() + "\nPlease choose another one.");
}

/// Copies a backup and proves the copy; returns what it holds.
Contents copyProved(const fs::path& backup, const fs::path& copy, Progress& progress) {
    const SQLite::Database source = openCopy(backup);
    copyBytes(backup, copy, progress);
    progress.begin("Checking the copy");
    const SQLite::Database copied = openCopy(copy);
    requireSound(copied, backup, progress);
    Contents contents = contentsOf(copied);
    if (contents != contentsOf(source))
        throw Refused(ExitStatus::Failed, "The copy was not like the backup. Please check the disk.");
    return contents;
}

/// Copies a logbook as it is, with what lies beside it, into the folder of the backups. Returns where.
fs::path copyAside(const fs::path& logbook, const BackupFolder& folder, const Clock& clock) {
    folder.make();
    fs::path aside =
        folder.path() / fmt::format("{} put aside {}{}", logbook.stem().string(),
                                    BackupFolder::shortName(clock.now()), logbook.extension().string());
    copyFile(logbook, aside);
    for (const fs::path& companion : companionsOf(logbook)) {
        const std::string ending = companion.string().substr(companion.string().rfind('-'));
        if (fileExists(companion))
            copyFile(companion, aside.string() + ending);
    }
    return aside;
}

/// The same for a logbook that cannot be backed up; says so where that fails, too.
fs::path putAside(const fs::path& logbook, const Clock& clock) {
    const BackupFolder folder(logbook);
    try {
        return copyAside(logbook, folder, clock);
    } catch (const std::exception& failure) {
        throw Refused(
            ExitStatus::Failed,
            fmt::format("The present logbook could neither be backed up nor copied, so it was left "
                        "as it is.\nFolder of the backups: {}\n{}. Please see that there is room on "
                        "the disk, and that the folder can be written.",
                        folder.path().string(), failure.what()));
    }
}

/// The backup that was made after these were there. It need not have the latest date: a clock can be set
/// back.
fs::path backupBeside(const std::vector<DateTime>& earlier, const BackupFolder& folder) {
    std::vector<DateTime> made;
    std::ranges::set_difference(folder.times(), earlier, std::back_inserter(made));
    if (made.empty())
        throw Refused(ExitStatus::Failed, "The backup that was made is gone. Please check the disk.");
    return folder.existing(made.back());
}

/// Keeps the present logbook where it can be found again; returns where. Nothing that was cut off is left
/// beside it afterwards, unless it is damaged.
fs::path keepPresent(const HeldLogbook& held, const Clock& clock) {
    if (!held.exists())
        return {};
    const BackupFolder folder(held.file());
    std::vector<DateTime> earlier;
    try {
        const std::unique_ptr<Connection> connection = held.open(clock);
        earlier = folder.times();
        backUpNow(held.file(), clock);
    } catch (const std::exception&) {
        return putAside(held.file(), clock);
    }
    return backupBeside(earlier, folder);
}

void requireEvent(const SQLite::Database& backup, std::int64_t key) {
    Statement event(backup, "SELECT 1 FROM tblEventInfo WHERE fldSessionNum = ?");
    event.bind(1, key);
    if (!event.executeStep())
        throw Refused(ExitStatus::BadInput, fmt::format("The backup has no event {}.", key));
}

void requireSame(const fs::path& logbook, const Contents& wanted, const fs::path& before) {
    if (contentsOf(openAsItStands(logbook)) != wanted)
        throw Refused(ExitStatus::Failed,
                      "The restored logbook is not like the backup. Please check the disk. The logbook from "
                      "before is here:\n" +
                          before.string());
}

}  // namespace

Restored restoreAll(const HeldLogbook& held, const fs::path& backup, const Clock& clock, Progress& progress) {
    const fs::path place = fs::weakly_canonical(held.file());  // a link stays one
    const UnfinishedFile copy(place);
    const Contents contents = copyProved(backup, copy.path(), progress);
    progress.begin("Backing up the present logbook");
    const fs::path before = keepPresent(held, clock);
    progress.begin("Putting the backup in place");
    for (const fs::path& companion : companionsOf(place))
        fs::remove(companion);
    copy.putInPlace();
    requireSame(place, contents, before);
    return {.counts = countsOf(openAsItStands(place)), .keptBefore = before};
}

Counts takeEvents(const HeldLogbook& held, const fs::path& backup, const std::vector<std::int64_t>& keys,
                  const Clock& clock, Progress& progress) {
    const SQLite::Database source = openCopy(backup);  // before a backup more makes this one go
    progress.begin("Checking the backup");
    requireSound(source, backup, progress);
    for (const std::int64_t key : keys)
        requireEvent(source, key);
    progress.begin("Backing up the present logbook");
    const bool isNew = !held.exists();
    const std::unique_ptr<Connection> connection = held.open(clock);
    if (!isNew)
        backUpNow(held.file(), clock);
    const SQLite::Database& logbook = connection->database();
    SQLite::Transaction transaction(connection->database());
    EventAdder adder(logbook);
    progress.begin("Adding the events", static_cast<std::int64_t>(keys.size()));
    for (const std::int64_t key : keys) {
        copyEvent(source, key, adder);
        progress.reach(adder.added().events);
    }
    transaction.commit();
    return adder.added();
}

}  // namespace tallybrook::keeper
