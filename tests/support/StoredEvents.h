#pragma once

#include "store/Store.h"

#include <filesystem>

#include <SQLiteCpp/SQLiteCpp.h>
#include <fmt/format.h>

namespace tallybrook::test {

/// Makes a logbook with so many events, by the names "Event 1" and so on. Nobody may have it open.
inline void writeEvents(const std::filesystem::path& logbook, int count, const Clock& clock) {
    { const Store made(logbook, clock); }
    SQLite::Database database(logbook.string(), SQLite::OPEN_READWRITE);
    database.exec(fmt::format(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < {}) "
        "INSERT INTO tblEventInfo (fldEventName, fldDateBowled) SELECT 'Event ' || i, '2026-11-04' FROM n",
        count));
}

}  // namespace tallybrook::test
