#pragma once

#include "keeper/Access.h"
#include "keeper/Summary.h"
#include "sheets/Csv.h"

#include <filesystem>
#include <string>

namespace tallybrook::keeper {

/// What was carried out.
struct Exported {
    Counts counts;
    std::string note;  // what a person should know of it: that it is a backup's
};

/// Refuses a file that must not be written over, since the logbook lives of it, or whose folder is missing.
/// Throws Refused.
void requireExportable(const std::filesystem::path& dataFolder, const std::filesystem::path& file);

/// Writes the logbook of a data folder into an archive. Throws Refused, Cancelled, and what the engine and
/// the file system report.
Exported exportArchive(const std::filesystem::path& dataFolder, const std::filesystem::path& file,
                       const Clock& clock, Progress& progress);

/// Writes the tables of a logbook into a folder, each as a file of CSV; `formulas` says what becomes of texts
/// that a spreadsheet would take for formulas. Throws as exportArchive() does.
Exported exportCsv(const std::filesystem::path& dataFolder, const std::filesystem::path& folder,
                   sheets::Formulas formulas, const Clock& clock, Progress& progress);

/// Writes a logbook as a workbook (.xlsx). Throws as exportArchive() does.
Exported exportWorkbook(const std::filesystem::path& dataFolder, const std::filesystem::path& file,
                        const Clock& clock, Progress& progress);

}  // namespace tallybrook::keeper
