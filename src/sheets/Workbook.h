#pragma once

#include "runtime/Progress.h"

#include <cstdint>
#include <filesystem>

#include <SQLiteCpp/SQLiteCpp.h>

namespace tallybrook::sheets {

/// What a cell holds at most, in UTF-16 units: a longer text is cut there.
inline constexpr std::size_t kMostInCell = 32767;

/// How many rows a sheet has at most.
inline constexpr std::uint32_t kMostRows = 1048576;

/// What a workbook came to.
struct WorkbookResult {
    std::int64_t cutTexts = 0;  // texts that were too long for a cell
};

/// Writes a logbook as one workbook (.xlsx): a sheet of events, one of games, one of frames, and one of games
/// with their events. Dates and numbers are real ones, every text stays a text. What has more rows than
/// `mostRows`, the headings among them, goes on on the next sheet. The file takes the place of another one
/// when it is whole and has been read again. Throws Cancelled, what the engine reports, std::system_error,
/// and std::runtime_error with a text for people.
WorkbookResult writeWorkbook(const SQLite::Database& logbook, const std::filesystem::path& file,
                             Progress& progress, std::uint32_t mostRows = kMostRows);

}  // namespace tallybrook::sheets
