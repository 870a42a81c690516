#pragma once

#include "keeper/Access.h"
#include "keeper/Summary.h"

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

}  // namespace tallybrook::keeper
