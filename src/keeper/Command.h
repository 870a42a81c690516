#pragma once

#include "keeper/Options.h"
#include "runtime/Clock.h"
#include "runtime/Progress.h"

#include <cstddef>
#include <ostream>
#include <span>
#include <string_view>

namespace tallybrook::keeper {

/// What a command works with.
struct Errand {
    const Options& options;
    const Clock& clock;
    Progress& progress;
    std::ostream& out;    // its answer
    std::ostream& notes;  // what a person should know besides
};

/// One thing that the program does.
struct Command {
    std::string_view name;
    std::string_view words;    // what it works on, as the help writes it
    std::string_view summary;  // for the help
    std::size_t leastWords;
    std::size_t mostWords;
    /// Carries it out. Throws Refused, WrongUsage, Cancelled, and what the store, the engine and the file
    /// system report.
    void (*run)(const Errand& errand);
};

/// All of them, in the order of the help.
std::span<const Command> commands();

}  // namespace tallybrook::keeper
