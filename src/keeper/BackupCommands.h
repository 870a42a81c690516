#pragma once

namespace tallybrook::keeper {

struct Errand;

// The commands on backups.

/// Lists the backups, the newest first.
void listBackups(const Errand& errand);
/// Shows the events of a backup, or the games and frames of one of them.
void lookIntoBackup(const Errand& errand);
/// Tells event by event how a backup differs from today's logbook.
void compareBackup(const Errand& errand);
/// Puts a backup in the logbook's place.
void restoreBackup(const Errand& errand);
/// Adds events of a backup to the logbook.
void takeFromBackup(const Errand& errand);

}  // namespace tallybrook::keeper
