#pragma once

#include "readers/ReportFigures.h"
#include "readers/ReportLines.h"

// The readers of a report's figures. Each takes all lines of the report and finds its own.
namespace tallybrook {

/// The scores of the games; nothing where the report tells none.
std::optional<ScoreFigures> scoresIn(const ReportLines& report);

/// The series of each length, in the order of the report.
std::vector<SeriesFigures> seriesIn(const ReportLines& report);

/// The summary of strikes and spares; nothing where the report has none of its figures.
std::optional<StrikeFigures> strikesIn(const ReportLines& report);

/// The leaves, the most attempts first, otherwise in the order of the report.
std::vector<LeaveFigures> leavesIn(const ReportLines& report);

/// The list of events of a statistical report.
EventFigures eventsIn(const ReportLines& report);

/// The games of an event report.
std::vector<GameFigures> gamesOfEvent(const ReportLines& report);

/// The game of a report of one game; none where it tells none.
std::vector<GameFigures> gameOfReport(const ReportLines& report);

}  // namespace tallybrook
