#pragma once

#include "sample/Options.h"

namespace tallybrook::sample {

/// Makes the logbook that the options ask for, and the handheld's files. Throws LogbookExists, and what the
/// store, the engine and the file system report.
void makeSample(const Options& options);

}  // namespace tallybrook::sample
