#pragma once

#include "runtime/Progress.h"

#include <cstdint>
#include <filesystem>
#include <span>

namespace tallybrook::sheets {

/// How many rows a sheet has, its headings among them.
struct SheetSize {
    std::uint32_t rows;
};

/// Reads a workbook again, since what goes wrong in the folder for temporary files is told by nobody: all its
/// sheets must be there, with all their rows. Throws Cancelled, and std::runtime_error with a text for
/// people.
void checkWorkbook(const std::filesystem::path& file, std::span<const SheetSize> sheets, Progress& progress);

}  // namespace tallybrook::sheets
