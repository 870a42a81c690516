#pragma once

namespace tallybrook {

class SyncRun;

// The three readers of a run. Each logs what became of every record.

/// Adds the events. Returns NoEvents: whether the file's record count was 0.
bool ReadCDBEvents(SyncRun& run);

/// Adds the games of the events added in this run. Returns NoGames: whether the file's record count was 0.
bool ReadCDBGames(SyncRun& run);

/// Adds the frames of the games and events added in this run.
void ReadCDBFrames(SyncRun& run);

}  // namespace tallybrook
