#pragma once

#include <filesystem>
#include <vector>

namespace tallybrook {

/// The journal of a logbook: the old contents of pages that a save was about to change.
std::filesystem::path journalOf(const std::filesystem::path& logbook);

/// All that the engine keeps beside a logbook while it is written, the journal first.
std::vector<std::filesystem::path> companionsOf(const std::filesystem::path& logbook);
/// The same of a file to which no link leads; it need not be there.
std::vector<std::filesystem::path> companionsBeside(const std::filesystem::path& file);

/// Whether a save was cut off and left its journal. An empty journal is just left over.
bool wasSaveCutOff(const std::filesystem::path& logbook);

/// What another program has written beside a logbook and not brought into it yet, in the engine's other way
/// to keep one; the program's own logbooks have none.
std::filesystem::path writeAheadOf(const std::filesystem::path& logbook);

/// Whether another program was cut off with such changes, which the engine takes for part of the logbook.
bool wasOtherProgramCutOff(const std::filesystem::path& logbook);

/// Whether the journal of a logbook is as a save has left it, as far as its heads, counts and checksums tell.
/// The engine takes what does not fit for the journal's end, and what stands behind for never written. Throws
/// std::system_error where it cannot be read.
bool isJournalSound(const std::filesystem::path& logbook);

}  // namespace tallybrook
