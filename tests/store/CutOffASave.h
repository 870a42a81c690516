#pragma once

#include <filesystem>
#include <string>

#include <SQLiteCpp/SQLiteCpp.h>

namespace tallybrook::test {

/// Begins a save that brings pages to the file and is cut off; leaves the file and its journal.
inline void cutOffASave(const std::filesystem::path& file, const std::string& statement) {
    const std::filesystem::path copy = file.string() + ".cut";
    {
        SQLite::Database database(file.string(), SQLite::OPEN_READWRITE);
        database.exec("PRAGMA cache_size = 0");
        database.exec("BEGIN");
        database.exec(statement);
        std::filesystem::copy_file(file, copy);
        std::filesystem::copy_file(file.string() + "-journal", copy.string() + "-journal");
    }
    std::filesystem::rename(copy, file);
    std::filesystem::rename(copy.string() + "-journal", file.string() + "-journal");
}

/// Lets another program change the file in the engine's other way to keep a database, and be cut off before
/// the file itself is written.
inline void cutOffOtherProgram(const std::filesystem::path& file, const std::string& statements) {
    const std::filesystem::path copy = file.string() + ".cut";
    {
        SQLite::Database database(file.string(), SQLite::OPEN_READWRITE);
        database.exec("PRAGMA journal_mode = WAL");
        database.exec("PRAGMA wal_autocheckpoint = 0");
        database.exec(statements);
        std::filesystem::copy_file(file, copy);
        std::filesystem::copy_file(file.string() + "-wal", copy.string() + "-wal");
    }
    std::filesystem::rename(copy, file);
    std::filesystem::rename(copy.string() + "-wal", file.string() + "-wal");
}

}  // namespace tallybrook::test
