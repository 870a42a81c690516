#pragma once

#include "keeper/Access.h"
#include "keeper/Summary.h"

#include <cstdint>
#include <filesystem>
#include <vector>

namespace tallybrook::keeper {

/// What came of a restore.
struct Restored {
    Counts counts;  // what the logbook holds now
    std::filesystem::path
        keptBefore;  // where the logbook that was there before is now; empty if there was none
};

/// Puts a copy of a backup in the place of the logbook. The copy is proved first, and the present logbook is
/// backed up and proved, or put aside as it is where it is damaged; then one rename changes them, so that
/// whatever happens the logbook is the old or the new one. Throws Refused, Cancelled before anything was
/// changed, and what the engine and the file system report.
Restored restoreAll(const HeldLogbook& held, const std::filesystem::path& backup, const Clock& clock,
                    Progress& progress);

/// Adds events of a backup to the logbook, with their games and frames, under new keys; nothing that is there
/// is changed. The logbook is backed up and proved first, and all of them are added or none. Returns what was
/// added. Throws as restoreAll() does; Refused where the backup has no event of such a key.
Counts takeEvents(const HeldLogbook& held, const std::filesystem::path& backup,
                  const std::vector<std::int64_t>& keys, const Clock& clock, Progress& progress);

}  // namespace tallybrook::keeper
