#pragma once

#include "keeper/Summary.h"

#include <string>
#include <vector>

namespace tallybrook::keeper {

/// What has become of an event of a backup.
enum class Fate { Same, Changed, Deleted };

/// In a word or two: "as today", "changed since", "deleted since".
std::string inWords(Fate fate);

/// How a backup differs from today's logbook.
struct Difference {
    std::vector<Fate> fates = {};  // of the backup's events, in their order
    Counts added = {};             // what is not in the backup
    Counts deleted = {};           // what was deleted since
    std::int64_t changed = 0;      // the events that were changed since
    bool strays = false;           // whether games or frames without an event differ
};

/// Compares a backup with today's logbook. An event is the same one if all its values are, whatever key it
/// has now; else it is told by its key.
Difference differenceOf(const Summary& backup, const Summary& today);

/// As in "2 events and 61 frames are not in it; 1 event was deleted since".
std::string inWords(const Difference& difference);

}  // namespace tallybrook::keeper
