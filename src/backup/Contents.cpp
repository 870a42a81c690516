#include "backup/Contents.h"

#include "backup/FileParts.h"
#include "store/file/UnlockedFile.h"

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

/// The head is left out, since it counts the changes of each file by itself.
std::uint64_t hashPages(const SQLite::Database& database) {
    constexpr std::int64_t kHeadSize = 100;
    const FileBytes file(database);
    const auto read = [&file](std::span<char> bytes, std::int64_t at) { file.read(bytes, at); };
    return hashOf(read, kHeadSize, file.size());
}

}  // namespace

Contents contentsOf(const SQLite::Database& database) {
    return {.rowCounts = countRows(database), .hash = hashPages(database)};
}

}  // namespace tallybrook
