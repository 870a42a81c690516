#pragma once

#include <cstdint>
#include <map>
#include <string>

#include <SQLiteCpp/SQLiteCpp.h>

namespace tallybrook {

/// What a database holds, by which a copy is compared with its source.
struct Contents {
    std::map<std::string, std::int64_t> rowCounts;  // by table
    std::uint64_t hash = 0;                         // of all pages, without the head of the file

    friend bool operator==(const Contents&, const Contents&) = default;
};

/// Reads all of a database file that nobody writes to meanwhile. Errors: SQLite::Exception.
Contents contentsOf(const SQLite::Database& database);

}  // namespace tallybrook
