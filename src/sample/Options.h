#pragma once

#include "runtime/CommandLine.h"

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

namespace tallybrook::sample {

/// What the program is called with.
struct Options {
    int events = 0;
    std::uint64_t seed = 1;
    std::filesystem::path data = {};
    bool cdb = false;   // whether the handheld's files are written as well
    bool help = false;  // help was asked for, and nothing else counts
};

extern const std::string_view kHelp;
extern const std::string_view kUsage;

/// Reads the arguments of the command line, without the program's name. Throws WrongUsage.
Options readOptions(std::span<const std::string> arguments);

}  // namespace tallybrook::sample
