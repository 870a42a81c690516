#pragma once

#include "runtime/TextFile.h"

#include <filesystem>

// The files that reports are written to. People may choose any, and what is there is replaced without a
// question; but a report cannot harm the logbook.
namespace tallybrook {

class Program;

/// Opens the file of a report, in place of any that is there. Error 75 for a file that the program keeps for
/// itself; others as TextWriter raises them.
TextWriter openReportFile(const Program& program, const std::filesystem::path& file);

/// Copies a finished report over what is there. Error 70 for a file that the program keeps for itself; others
/// as copyFile() raises them.
void copyReportFile(const Program& program, const std::filesystem::path& from,
                    const std::filesystem::path& to);

}  // namespace tallybrook
