#pragma once

#include "Plain.h"

#include <filesystem>

// The works in the least possible way, with SQLite's own interface. The statistical report has a file of its
// own.
namespace tallybrook::bench {

/// Runs a query and looks at each value as it is stored.
void readAll(PlainDatabase& logbook, const char* sql);

/// Reads an event with its games and frames by their indexes, and writes them to a file.
void writeEvent(PlainDatabase& logbook, int session, const std::filesystem::path& file);

/// Looks for rows without an event and for counts and score types that are wrong; returns how many there are.
int checkLogbook(PlainDatabase& logbook);

/// Adds the content of export files to a logbook in one transaction, with the recorded counts. The keys of
/// the events become the handheld's own identifiers plus `shift`.
void importFiles(PlainDatabase& logbook, const std::filesystem::path& folder, int shift);

/// The highest key of an event.
int lastEvent(PlainDatabase& logbook);

}  // namespace tallybrook::bench
