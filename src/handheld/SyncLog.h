#pragma once

#include "handheld/FileHandle.h"
#include "runtime/Clock.h"
#include "runtime/TextFile.h"

#include <string>
#include <string_view>

namespace tallybrook {

using LogFile = FileHandle<TextWriter>;

/// The two logs of a run, and the stamp of their dated lines.
class SyncLog {
public:
    LogFile master;  // grows over all runs
    LogFile run;     // the full story of this one

    /// Takes the date and the time, to the minute.
    void Get_Stamp(const Clock& clock);
    /// Date and time of the last Get_Stamp, as in "11/14/2026 9:55:00 PM".
    [[nodiscard]] const std::string& stamp() const { return stamp_; }

private:
    std::string stamp_;
};

/// Writes a text of one or more lines and a line end to a log, where it can be read from then on; error 52
/// when it is closed, else as TextWriter raises them.
void Write_Log(std::string_view text, LogFile& log);

/// The start of a run as the names of its files bear it, as in "11-14-2026-2155".
std::string syncStamp(DateTime start);

}  // namespace tallybrook
