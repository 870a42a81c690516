#pragma once

#include <filesystem>
#include <string>

#include <SQLiteCpp/SQLiteCpp.h>

namespace tallybrook::test {

/// Lets a program prepare and run statements on the file, and be cut off: leaves the file as it then is, and
/// what the engine has beside it under that name.
inline void cutOff(const std::filesystem::path& file, const std::string& companion,
                   const std::string& preparation, const std::string& statements) {
    const std::filesystem::path copy = file.string() + ".cut";
    {
        SQLite::Database database(file.string(), SQLite::OPEN_READWRITE);
        database.exec(preparation);
        database.exec(statements);
        std::filesystem::copy_file(file, copy);
        std::filesystem::copy_file(file.string() + companion, copy.string() + companion);
    }
    std::filesystem::rename(copy, file);
    std::filesystem::rename(copy.string() + companion, file.string() + companion);
}

/// Begins a save that brings pages to the file and is cut off; leaves the file and its journal.
inline void cutOffASave(const std::filesystem::path& file, const std::string& statement) {
    cutOff(file, "-journal", "PRAGMA cache_size = 0; BEGIN", statement);
}

/// Lets another program change the file in the engine's other way to keep a database, and be cut off before
/// the file itself is written.
inline void cutOffOtherProgram(const std::filesystem::path& file, const std::string& statements) {
    cutOff(file, "-wal", "PRAGMA journal_mode = WAL; PRAGMA wal_autocheckpoint = 0", statements);
}

}  // namespace tallybrook::test
