#include "store/file/LogbookFile.h"

#include "store/file/CutOffSave.h"
#include "store/file/Inspection.h"
#include "store/file/Journal.h"
#include "store/file/UnlockedFile.h"
#include "store/sql/Schema.h"

#include <string>

#include <fmt/format.h>
#include <sqlite3.h>

namespace tallybrook {

namespace fs = std::filesystem;

namespace {

fs::path unfinished(const fs::path& logbook) {
    return logbook.string() + ".new";
}

/// Makes an empty logbook, whole or not at all: under another name first.
void makeLogbook(const fs::path& file) {
    fs::remove(unfinished(file));
    {
        SQLite::Database database(unfinished(file).string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        fs::permissions(unfinished(file), fs::perms::owner_read | fs::perms::owner_write);
        SQLite::Transaction transaction(database);
        for (const std::string& statement : schemaStatements())
            database.exec(statement);
        transaction.commit();
    }
    // What an older logbook of that name has left of a save that was cut off is not this one's.
    for (const fs::path& companion : companionsOf(file))
        fs::remove(companion);
    fs::rename(unfinished(file), file);
}

/// Refuses what is no logbook, or is damaged so that it shows, and leaves it as it is. What it holds is
/// looked at without a lock; where a save or another program was cut off, on copies, with what comes of it.
void inspect(const fs::path& file, int newestSchema) {
    inspectFile(file, newestSchema);
    removeCopiesForTrial(file);
    if (wasSaveCutOff(file))
        tryToUndoCutOffSave(file, newestSchema);
    else if (wasOtherProgramCutOff(file))
        tryToTakeInChanges(file, newestSchema);
    else
        inspectTables(file, openAsItStands(file), newestSchema);
}

/// What to tell of a logbook that the engine cannot open.
std::string reasonFor(const SQLite::Exception& failure) {
    switch (failure.getErrorCode()) {
        case SQLITE_BUSY:
            return "Another program is using it. Please close that program first.";
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
            return fmt::format("The logbook is damaged. {}", kPutCopy);
        default:
            return fmt::format("The database reports: {}. Please check the disk and the permissions.",
                               failure.what());
    }
}

}  // namespace

std::unique_ptr<Connection> openLogbook(const fs::path& file, const Upgrade& upgrade) {
    try {
        if (fs::symlink_status(file).type() == fs::file_type::not_found)
            makeLogbook(file);
        inspect(file, newestSchema(upgrade.steps));
        auto connection = std::make_unique<Connection>(file);
        bringUpToDate(file, connection->database(), upgrade);
        return connection;
    } catch (const SQLite::Exception& failure) {
        refuseLogbook(file, reasonFor(failure));
    } catch (const fs::filesystem_error& failure) {
        refuseLogbook(file, failure.code().message() + ". Please check the permissions of its folder.");
    }
}

std::vector<fs::path> filesOfLogbook(const fs::path& logbook) {
    std::vector<fs::path> files = companionsOf(logbook);
    files.push_back(logbook);
    files.push_back(unfinished(logbook));
    for (fs::path& copy : copiesForTrial(logbook))
        files.push_back(std::move(copy));
    return files;
}

}  // namespace tallybrook
