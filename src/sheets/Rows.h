#pragma once

#include "runtime/Progress.h"
#include "store/file/Statement.h"

#include <functional>
#include <string>
#include <string_view>

#include <SQLiteCpp/SQLiteCpp.h>

namespace tallybrook::sheets {

/// Walks over the rows that a statement finds in a logbook, and tells how many of them are done under the
/// name of `what`. Throws Cancelled, and what the engine reports.
void forEachRow(const SQLite::Database& logbook, const std::string& sql, std::string_view what,
                Progress& progress, const std::function<void(const Statement& row)>& visit);

}  // namespace tallybrook::sheets
