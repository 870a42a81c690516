#pragma once

namespace tallybrook::keeper {

struct Errand;

/// Carries an old logbook over: the one that is named, or the one in the place of the logbook.
void carryOldLogbookOver(const Errand& errand);

}  // namespace tallybrook::keeper
