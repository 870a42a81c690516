#pragma once

namespace tallybrook {

class SyncRun;

// What is asked and made before the files are read, and what becomes of them afterwards.

/// Asks whether the handheld's records are to be deleted once they are in the logbook.
void Prep_Sync(SyncRun& run);

/// Gathers, archives and opens the export files.
void Prep_Files(SyncRun& run);

/// Removes the files of the run. If the handheld's records are to be deleted, the files that tell it so take
/// the place of its own.
void Sync_Cleanup(SyncRun& run);

/// Removes the files of a run that had nothing to read; errors as closing and deleting raise them.
void removeUnusedFiles(SyncRun& run);

}  // namespace tallybrook
