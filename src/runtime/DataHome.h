#pragma once

#include <filesystem>

// Where the logbook is kept, and what the files beside it are called.
namespace tallybrook {

/// The folder of the logbook: `Tallybrook` below the user's data home.
std::filesystem::path defaultDataFolder();

/// The logbook in a data folder.
std::filesystem::path logbookIn(const std::filesystem::path& dataFolder);
/// The file there on which the program that may write the logbook holds a lock.
std::filesystem::path lockIn(const std::filesystem::path& dataFolder);
/// The file there that keeps what must be remembered between two runs.
std::filesystem::path configurationIn(const std::filesystem::path& dataFolder);

}  // namespace tallybrook
