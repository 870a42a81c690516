#pragma once

#include "handheld/CdbRecord.h"
#include "handheld/SyncRun.h"
#include "store/CommitAtEnd.h"

#include <functional>
#include <string>

namespace tallybrook {

/// What became of a record, and the line of the log that tells it.
struct Outcome {
    bool isAdded;  // false: it counts as in error
    std::string logLine;
};

/// Brings the rows added so far to the disk, and then the lines of the run's log that tell of them. To be
/// called before a person is asked or told something. Errors as `rows` and the log raise them.
void bringToDisk(SyncRun& run, CommitAtEnd& rows);

/// Reads one of the run's export files from its beginning to its end. `add` gets every record that is not
/// deleted, with the fields up to the format's lastBeforeStatus cut, and puts it into the logbook. A record
/// count of 0 ends the reading at once: the file is empty then, and left open. Errors as the files, the
/// numbers, `rows` and `add` raise them.
///
/// Row by row the rows would take the disk many times as long, so `rows` brings them there together, and then
/// the lines of the log that tell of them. What is promised all the same: whenever a person is asked or told
/// something, and before the summary of a file is logged, all rows added so far are on the disk, or it is
/// told that they are not, and the log can be read. A program that is killed in between takes rows with it;
/// the handheld's files are untouched by then, so the next run adds them.
void readExportFile(SyncRun& run, SyncFile& file, CommitAtEnd& rows,
                    const std::function<Outcome(CdbRecord&)>& add);

}  // namespace tallybrook
