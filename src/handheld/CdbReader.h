#pragma once

#include "handheld/CdbRecord.h"
#include "handheld/RowBatch.h"
#include "handheld/SyncRun.h"

#include <functional>
#include <string>

namespace tallybrook {

/// What became of a record, and the line of the log that tells it.
struct Outcome {
    bool isAdded;  // false: it counts as in error
    std::string logLine;
};

/// Reads one of the run's export files from its beginning to its end. `add` gets every record that is not
/// deleted, with the fields up to the format's lastBeforeStatus cut, and puts it into the logbook as one of
/// `rows`, which are all on the disk afterwards. A record count of 0 ends the reading at once: the file is
/// empty then, and left open. Errors as the files, the numbers, `rows` and `add` raise them.
void readExportFile(SyncRun& run, SyncFile& file, RowBatch& rows,
                    const std::function<Outcome(CdbRecord&)>& add);

}  // namespace tallybrook
