#pragma once

#include "runtime/TextFile.h"

#include <filesystem>

// The files that the program shares with people and with the handheld: reports, logs, export files. Any may
// be chosen, and whatever is there is replaced without a question; but none of them can harm the logbook.
namespace tallybrook {

class Program;

/// Opens a file to be written. Error 75 for one that the program keeps for itself; others as TextWriter
/// raises them.
TextWriter openSharedFile(const Program& program, const std::filesystem::path& file,
                          TextWriter::Mode mode = TextWriter::Mode::Overwrite,
                          Encoding encoding = Encoding::Utf8);

/// Copies a file over what is there. Error 70 where either is one that the program keeps for itself; others
/// as copyFile() raises them.
void copySharedFile(const Program& program, const std::filesystem::path& from,
                    const std::filesystem::path& to);

}  // namespace tallybrook
