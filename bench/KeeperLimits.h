#pragma once

#include "Plain.h"

#include <cstdint>
#include <filesystem>

// What the keeper does in the least possible way: a loop over the rows and the file, with no thought of what
// could be wrong with either.
namespace tallybrook::bench {

std::int64_t frameCount(PlainDatabase& logbook);

/// Writes every value of a logbook as text, with an unlikely character between two of them. The file is on
/// the disk at the end.
void writePlainText(PlainDatabase& logbook, const std::filesystem::path& file);
/// Adds what writePlainText() has written to a logbook without rows, in one transaction.
void readPlainText(const std::filesystem::path& file, PlainDatabase& logbook);

/// Writes every value of a logbook into a workbook, numbers as numbers.
void writePlainWorkbook(PlainDatabase& logbook, const std::filesystem::path& file);

/// Adds the rows of an old logbook to one without rows, in one transaction, as the library gives them.
void readPlainJet(const std::filesystem::path& file, PlainDatabase& logbook);

}  // namespace tallybrook::bench
