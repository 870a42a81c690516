#include "backup/Contents.h"

#include <algorithm>
#include <functional>
#include <string_view>
#include <vector>

#include <sqlite3.h>

namespace tallybrook {

namespace {

std::int64_t numberFrom(const SQLite::Database& database, const std::string& sql) {
    SQLite::Statement statement(database, sql);
    statement.executeStep();
    return statement.getColumn(0).getInt64();
}

std::string quoted(const std::string& name) {
    std::string text = "\"";
    for (const char sign : name)
        text += sign == '"' ? std::string("\"\"") : std::string(1, sign);
    return text + '"';
}

/// Counts the rows of the tables that hold rows of their own.
std::map<std::string, std::int64_t> countRows(const SQLite::Database& database) {
    std::map<std::string, std::int64_t> counts;
    SQLite::Statement tables(database,
                             "SELECT name FROM sqlite_master WHERE type = 'table' AND rootpage > 0");
    while (tables.executeStep()) {
        const std::string name = tables.getColumn(0).getString();
        counts[name] = numberFrom(database, "SELECT count(*) FROM " + quoted(name));
    }
    return counts;
}

/// Takes in some bytes; their order counts.
std::uint64_t withBytes(std::uint64_t hash, std::string_view bytes) {
    constexpr std::uint64_t kPrime = 0x100000001b3;
    return (hash ^ std::hash<std::string_view>{}(bytes)) * kPrime;
}

/// Hashes the file's bytes as its engine reads them: closing the file by other means would take the engine's
/// lock away. The head is left out, since it counts the changes of each file by itself.
std::uint64_t hashPages(const SQLite::Database& database) {
    constexpr std::int64_t kHeadSize = 100;
    constexpr std::int64_t kAtOnce = 1 << 18;
    const std::int64_t size =
        numberFrom(database, "SELECT page_count * page_size FROM pragma_page_count, pragma_page_size");
    sqlite3_file* file = nullptr;
    sqlite3_file_control(database.getHandle(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
    std::vector<char> bytes(kAtOnce);
    std::uint64_t hash = 0;
    for (std::int64_t at = kHeadSize; at < size; at += kAtOnce) {
        const std::int64_t count = std::min(kAtOnce, size - at);
        const int result = file->pMethods->xRead(file, bytes.data(), static_cast<int>(count), at);
        if (result != SQLITE_OK)
            throw SQLite::Exception("the file cannot be read", result);
        hash = withBytes(hash, {bytes.data(), static_cast<std::size_t>(count)});
    }
    return hash;
}

}  // namespace

Contents contentsOf(const SQLite::Database& database) {
    return {.rowCounts = countRows(database), .hash = hashPages(database)};
}

}  // namespace tallybrook
