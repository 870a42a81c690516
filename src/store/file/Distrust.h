#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

namespace tallybrook {

/// Takes a database for what anybody may have made. Nothing that is written in the file calls a function that
/// does more than compute, no statement writes to the engine's own tables, and triggers that the file brings
/// along are not run: a logbook has none, and what they would do behind a save is nobody's wish.
void distrust(const SQLite::Database& database);

}  // namespace tallybrook
