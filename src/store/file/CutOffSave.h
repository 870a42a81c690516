#pragma once

#include <filesystem>
#include <vector>

namespace tallybrook {

/// The engine undoes a save that was cut off by itself, from the journal, and then drops the journal: what it
/// has made of a damaged one cannot be taken back. So it is first let loose on copies of both. Throws
/// LogbookRefused, with the logbook and its journal as they were, where what comes of it is not sound.
void tryToUndoCutOffSave(const std::filesystem::path& logbook, int newestSchema);

/// The same with what another program was cut off before it had brought into the logbook.
void tryToTakeInChanges(const std::filesystem::path& logbook, int newestSchema);

/// Where the copies lie, which a program that ends in the middle of the trial leaves there.
std::vector<std::filesystem::path> copiesForTrial(const std::filesystem::path& logbook);
/// Removes what such a program has left.
void removeCopiesForTrial(const std::filesystem::path& logbook);

}  // namespace tallybrook
