#pragma once

#include "runtime/DateTime.h"
#include "runtime/Integer.h"

#include <string>

namespace tallybrook {

class Program;

/// What Write_Report() is asked for.
struct ReportRequest {
    /// "Summary" or "Full" for the report of one event; anything else for the statistical report.
    std::string kind;
    /// Statistical report: "All Events", "League", "Practice" or "Tournament".
    std::string evType = {};
    /// Statistical report: the event name that it is limited to, or empty. Event report: the event's name.
    std::string filter = {};
    /// Event report: the key of the event.
    Int32 eventKey = {};
    /// Statistical report: the first and the last date, or the zero date for no limit.
    DateTime dateFrom = kZeroDate;
    DateTime dateTo = kZeroDate;
    /// The path of the report file; one that is there is replaced.
    std::string file = {};
    /// Whether the finished file is copied to the handheld's synchronisation folder.
    bool copyToHandheld = false;
};

/// Writes a report to its file. What fails is told in the boxes of the display, one for each step from the
/// failing one on; what was written before stays in the file.
void Write_Report(Program& program, const ReportRequest& request);

}  // namespace tallybrook
