#pragma once

#include "backup/KeptFiles.h"

#include <filesystem>

// The files that the program keeps in its data folder for itself.
namespace tallybrook {

class Program;

/// The file on which the running program holds a lock.
std::filesystem::path lockFile(const Program& program);

/// The file that keeps what must be remembered between two runs.
std::filesystem::path configurationFile(const Program& program);

/// All files that the program keeps for itself.
KeptFiles ownFiles(const Program& program);

}  // namespace tallybrook
