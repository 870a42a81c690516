#include "store/file/CutOffSave.h"

#include "store/file/Distrust.h"
#include "store/file/Inspection.h"
#include "store/file/Journal.h"
#include "store/file/LogbookRefused.h"

#include <string>
#include <system_error>

#include <SQLiteCpp/SQLiteCpp.h>
#include <fmt/format.h>
#include <sqlite3.h>

namespace tallybrook {

namespace fs = std::filesystem;

namespace {

fs::path copyForTrial(const fs::path& logbook) {
    std::error_code ignored;
    return fs::weakly_canonical(logbook, ignored).string() + ".trial";
}

/// Sees to it that copies go away again, be they only begun.
class CopiesAway {
public:
    explicit CopiesAway(const fs::path& logbook) : logbook_(logbook) {}
    ~CopiesAway() { removeCopiesForTrial(logbook_); }
    CopiesAway(const CopiesAway&) = delete;
    CopiesAway& operator=(const CopiesAway&) = delete;

private:
    const fs::path& logbook_;
};

/// Which of the files beside a logbook, or beside a copy of it, is tried out with it.
using Companion = fs::path (*)(const fs::path& logbook);

bool isWhole(const SQLite::Database& database) {
    SQLite::Statement check(database, "PRAGMA integrity_check(1)");
    return check.executeStep() && check.getColumn(0).getString() == "ok";
}

bool isDamage(const SQLite::Exception& failure) {
    return failure.getErrorCode() == SQLITE_CORRUPT || failure.getErrorCode() == SQLITE_NOTADB;
}

/// Whether what the engine makes of copies is sound; throws LogbookRefused for a database of another kind.
bool isSoundOnCopies(const fs::path& logbook, Companion companionOf, int newestSchema) {
    const CopiesAway away(logbook);
    const fs::path copy = copyForTrial(logbook);
    fs::copy_file(companionOf(logbook), companionOf(copy));
    fs::copy_file(logbook, copy);
    try {
        SQLite::Database database(copy.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX);
        database.exec("PRAGMA synchronous = OFF");  // nobody needs the copy for longer than this
        distrust(database);
        inspectTables(logbook, database, newestSchema);
        return isWhole(database);
    } catch (const SQLite::Exception& failure) {
        if (isDamage(failure))
            return false;
        throw;
    }
}

}  // namespace

std::vector<fs::path> copiesForTrial(const fs::path& logbook) {
    const fs::path copy = copyForTrial(logbook);
    std::vector<fs::path> copies = companionsBeside(copy);
    copies.insert(copies.begin(), copy);
    return copies;
}

void removeCopiesForTrial(const fs::path& logbook) {
    for (const fs::path& copy : copiesForTrial(logbook)) {
        std::error_code ignored;
        fs::remove(copy, ignored);
    }
}

void tryToUndoCutOffSave(const fs::path& logbook, int newestSchema) {
    try {
        if (!isJournalSound(logbook) || !isSoundOnCopies(logbook, journalOf, newestSchema))
            refuseLogbook(
                logbook,
                fmt::format(
                    "A save was cut off, and cannot be undone, since the logbook or its "
                    "journal is damaged. Both are left as they are. Please go back to a "
                    "backup with the Tallybrook Keeper, which puts them away together.\r\nJournal: {}",
                    journalOf(logbook).string()));
    } catch (const std::system_error& failure) {
        refuseLogbook(logbook,
                      fmt::format("A save was cut off, and cannot be undone yet: {}. Please see that "
                                  "there is room on the disk for a copy of the logbook.",
                                  failure.code().message()));
    }
}

void tryToTakeInChanges(const fs::path& logbook, int newestSchema) {
    try {
        if (!isSoundOnCopies(logbook, writeAheadOf, newestSchema))
            refuseLogbook(logbook,
                          fmt::format("Another program has left changes beside the logbook, and they or the "
                                      "logbook are damaged. Both are left as they are. Please go back to a "
                                      "backup with the Tallybrook Keeper, which puts them away "
                                      "together.\r\nChanges: {}",
                                      writeAheadOf(logbook).string()));
    } catch (const std::system_error& failure) {
        refuseLogbook(logbook,
                      fmt::format("Another program has left changes beside the logbook, and they cannot be "
                                  "taken in yet: {}. Please see that there is room on the disk for a copy "
                                  "of the logbook.",
                                  failure.code().message()));
    }
}

}  // namespace tallybrook
