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

}  // namespace tallybrook::test
