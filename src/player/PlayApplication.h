#pragma once

#include "player/Options.h"
#include "player/Stage.h"

#include <filesystem>
#include <istream>
#include <ostream>

namespace tallybrook {

/// Plays a script on the program's own screens, writes the transcript and returns the exit status. The data
/// folder is the one of the options, or a temporary one.
int playApplication(const Options& options, Stage& stage, std::istream& script, std::ostream& transcript,
                    std::ostream& errors);

}  // namespace tallybrook
