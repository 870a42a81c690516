#pragma once

#include "keeper/ExitStatus.h"
#include "runtime/Clock.h"
#include "runtime/Progress.h"

#include <ostream>
#include <span>
#include <string>

namespace tallybrook::keeper {

/// Carries out what a command line says, given without the program's name: the answer goes to `out`, what
/// went wrong to `notes`. Raises nothing.
ExitStatus runKeeper(std::span<const std::string> arguments, const Clock& clock, Progress& progress,
                     std::ostream& out, std::ostream& notes);

}  // namespace tallybrook::keeper
