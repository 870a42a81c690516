#pragma once

namespace tallybrook::keeper {

struct Errand;

// The commands that read archives.

/// Checks an archive, and shows its events and which of them are in the logbook already.
void lookIntoArchive(const Errand& errand);
/// Reads an archive into the logbook.
void readArchiveFile(const Errand& errand);

}  // namespace tallybrook::keeper
