#pragma once

#include <filesystem>

// The files that the program keeps in its data folder for itself.
namespace tallybrook {

class Program;

/// The file on which the running program holds a lock.
std::filesystem::path lockFile(const Program& program);

/// The file that keeps what must be remembered between two runs.
std::filesystem::path configurationFile(const Program& program);

/// Whether a path leads to one of the files that the program keeps for itself; see isKeptFile().
bool isOwnFile(const Program& program, const std::filesystem::path& path);

}  // namespace tallybrook
