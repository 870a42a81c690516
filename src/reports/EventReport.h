#pragma once

#include <functional>

namespace tallybrook {

class ReportRun;
struct ReportRequest;

/// Writes the body of the report of one event: the event, its games with their line scores and, in a "Full"
/// report, every frame; then `writeSpares`, the two blocks that end every report.
void Write_Event(ReportRun& run, const ReportRequest& request, const std::function<void()>& writeSpares);

}  // namespace tallybrook
