#pragma once

#include <filesystem>

// The files that the program keeps in its data folder for itself.
namespace tallybrook {

class Program;

/// The file on which the running program holds a lock.
std::filesystem::path lockFile(const Program& program);

/// The file that keeps what must be remembered between two runs.
std::filesystem::path configurationFile(const Program& program);

/// Whether a path leads to the logbook, its journal, one of its backups, the configuration or the lock,
/// however it is spelt and whatever links it goes over. Opens none of them, since to close the logbook again
/// would give up its lock.
bool isOwnFile(const Program& program, const std::filesystem::path& path);

}  // namespace tallybrook
