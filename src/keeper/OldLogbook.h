#pragma once

#include "carry/CarryOver.h"
#include "keeper/Access.h"

#include <filesystem>
#include <string>

namespace tallybrook::keeper {

/// Carries an old logbook over to the place of the logbook, where there is none yet, or one without any row,
/// or the old one itself. Throws Refused, Cancelled, and what the engine and the file system report.
carry::CarriedOver takeInOldLogbook(const HeldLogbook& place, const std::filesystem::path& oldLogbook,
                                    const Clock& clock, Progress& progress);

/// What was carried over, how it was compared, and what a person should know.
std::string inWords(const carry::CarriedOver& carried);

}  // namespace tallybrook::keeper
