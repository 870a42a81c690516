#pragma once

namespace tallybrook::keeper {

struct Errand;

// The commands on archives.

/// Writes the logbook into an archive.
void writeArchiveFile(const Errand& errand);
/// Checks an archive, and shows its events and which of them are in the logbook already.
void lookIntoArchive(const Errand& errand);
/// Reads an archive into the logbook.
void readArchiveFile(const Errand& errand);

}  // namespace tallybrook::keeper
