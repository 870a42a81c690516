#pragma once

#include "carry/Messages.h"

#include <cstdint>
#include <functional>
#include <span>
#include <string>

namespace tallybrook::carry {

/// Reads all tables of a logbook from an old logbook's file of `size` bytes, and tells what there is. Where
/// the file cannot be read that is told as well. Only the first table of a name counts.
void readOldLogbook(const std::string& path, std::uint64_t size,
                    const std::function<void(const Message&)>& tell);

/// What a program is called with that is to be such a process.
inline constexpr const char* kReadingCommand = "--read-old-logbook";

/// Whether a program is called so. It is then to do nothing but beTheReadingProcess().
bool isReadingProcess(std::span<const char* const> arguments);

/// Reads the old logbook that is open as standard input, with limits of time and memory and no right to write
/// files, and tells what there is on standard output. Returns the exit status: 0, or else all was not told.
int beTheReadingProcess();

}  // namespace tallybrook::carry
