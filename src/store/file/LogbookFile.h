#pragma once

#include "store/file/Connection.h"
#include "store/file/LogbookRefused.h"
#include "store/file/Upgrade.h"

#include <filesystem>
#include <memory>
#include <vector>

namespace tallybrook {

/// Opens the logbook, or makes an empty one where there is no file; undoes a save that was cut off, and
/// brings an older logbook up to date. Throws LogbookRefused.
std::unique_ptr<Connection> openLogbook(const std::filesystem::path& file, const Upgrade& upgrade);

/// All files that are kept for a logbook, be they there or not: itself, and what may lie beside it.
std::vector<std::filesystem::path> filesOfLogbook(const std::filesystem::path& logbook);

}  // namespace tallybrook
