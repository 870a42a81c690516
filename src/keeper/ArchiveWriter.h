#pragma once

#include "keeper/Summary.h"

#include <filesystem>

#include <SQLiteCpp/SQLiteCpp.h>

namespace tallybrook::keeper {

/// Writes all that a logbook holds into an archive: the same bytes for the same logbook. What is there is
/// replaced when the archive is whole and on the disk. Returns what was written. Throws Cancelled, Refused
/// where a value is too long for a line, and what the engine and the file system report.
Counts writeArchive(const SQLite::Database& logbook, const std::filesystem::path& file, Progress& progress);

}  // namespace tallybrook::keeper
