#include "sheets/Rows.h"

#include <cstdint>

#include <fmt/format.h>

namespace tallybrook::sheets {

void forEachRow(const SQLite::Database& logbook, const std::string& sql, std::string_view what,
                Progress& progress, const std::function<void(const Statement& row)>& visit) {
    Statement count(logbook, fmt::format("SELECT count(*) FROM ({})", sql));
    count.executeStep();
    progress.begin(what, count.number(0));
    Statement rows(logbook, sql);
    for (std::int64_t done = 0; rows.executeStep(); progress.reach(++done))
        visit(rows);
}

}  // namespace tallybrook::sheets
