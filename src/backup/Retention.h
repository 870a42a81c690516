#pragma once

#include "runtime/DateTime.h"

#include <vector>

namespace tallybrook {

/// Which of the backups made at these times, in any order, are kept at `now`, in ascending order: all of the
/// last two days; of the last two weeks the newest of each day; of the last half year the newest of each
/// week, which begins on Monday; of all times the newest of each month. Times to come count as now.
std::vector<DateTime> keptBackups(std::vector<DateTime> times, DateTime now);

/// Which of them, in any order, are to be removed when a backup has been made, in ascending order: such as
/// are not kept, the oldest first, and never more than three, so that a mistake costs little. A clock can be
/// far ahead for an evening: it is believed no further than a backup bears out that is a day older than the
/// newest.
std::vector<DateTime> backupsToRemove(std::vector<DateTime> times, DateTime now);

}  // namespace tallybrook
