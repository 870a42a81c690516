#pragma once

#include "player/Options.h"

#include <istream>
#include <ostream>

namespace tallybrook {

/// Plays a script on the real windows, as playApplication() does. Makes the toolkit's application object;
/// without any display to be seen the windows are drawn in memory. `program` is the program's own name.
int playOnDesktop(const Options& options, std::istream& script, std::ostream& transcript,
                  std::ostream& errors, char* program);

}  // namespace tallybrook
