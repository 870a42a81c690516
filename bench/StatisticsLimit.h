#pragma once

#include "Plain.h"

#include <filesystem>

namespace tallybrook::bench {

/// Writes the statistical report over all events in the least possible way: one scan of each table, in the
/// order of their keys, with the columns that it needs. For a sound logbook whose rows are in the order of
/// the dates, as a sample is: the file is the same as the program's, to the byte.
void writeStatistics(PlainDatabase& logbook, const std::filesystem::path& file);

}  // namespace tallybrook::bench
