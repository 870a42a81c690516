#pragma once

namespace tallybrook::keeper {

struct Errand;

// The commands on backups.

/// Lists the backups, the newest first.
void listBackups(const Errand& errand);

}  // namespace tallybrook::keeper
