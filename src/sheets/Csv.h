#pragma once

#include "runtime/Progress.h"

#include <filesystem>
#include <span>
#include <string>
#include <string_view>

#include <SQLiteCpp/SQLiteCpp.h>

// The tables of a logbook as CSV, as RFC 4180 has it: fields between commas, lines that end in CR LF, quotes
// around what holds a comma, a quote or the end of a line. The text is UTF-8, the first line names the
// fields.
namespace tallybrook::sheets {

/// What becomes of a text that a spreadsheet would take for a formula, such as "=1+1": it gets an apostrophe
/// in front, as does a text that begins with one; or it is written as it is.
enum class Formulas { Guarded, Verbatim };

/// A table, and the file that it is written to.
struct CsvFile {
    std::string_view table;
    std::string_view name;
};

/// The files of a logbook.
std::span<const CsvFile> csvFiles();

/// Writes the tables of a logbook into a folder, each into a file of its own, in the order of the keys. The
/// files take the places of others of their names when all of them are whole. Throws Cancelled, what the
/// engine reports, and std::system_error.
void writeCsv(const SQLite::Database& logbook, const std::filesystem::path& folder, Formulas formulas,
              Progress& progress);

/// A text as a field of CSV.
std::string csvField(std::string_view text, Formulas formulas);

}  // namespace tallybrook::sheets
