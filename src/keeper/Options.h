#pragma once

#include "runtime/CommandLine.h"

#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace tallybrook::keeper {

/// What the program is called with.
struct Options {
    std::string command = {};
    std::vector<std::string> words = {};   // what the command is to work on
    std::filesystem::path data = {};       // the data folder
    std::string same = {};                 // keep, take or both
    std::vector<std::string> events = {};  // the choices for some events, as in "12=take"
    bool verbatim = false;                 // whether texts of CSV are written as they are
    bool window = false;                   // whether the window is wanted
    bool json = false;                     // whether the answer is for a program
    bool help = false;
    bool version = false;
};

/// Reads the arguments of the command line, without the program's name. Throws WrongUsage.
Options readOptions(std::span<const std::string> arguments);

}  // namespace tallybrook::keeper
