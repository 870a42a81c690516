#pragma once

#include "reports/ScoreSummary.h"

#include <functional>

namespace tallybrook {

struct ReportRequest;

/// Writes the body of the statistical report: totals, the events by date, the games by score, the series;
/// then `writeSpares`, the two blocks that end every report.
void Write_Stats(ReportRun& run, const ReportRequest& request, const ScoreSummary& summary,
                 const std::function<void()>& writeSpares);

}  // namespace tallybrook
