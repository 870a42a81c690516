#pragma once

#include <filesystem>

namespace tallybrook {

/// Whether a path leads to what is kept in a data folder: the logbook, its journal, one of its backups, the
/// configuration or the lock, however it is spelt and whatever links it goes over. Opens none of them, since
/// to close the logbook again would give up its lock.
bool isKeptFile(const std::filesystem::path& dataFolder, const std::filesystem::path& path);

}  // namespace tallybrook
