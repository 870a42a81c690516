#pragma once

#include "viewer/ReportFigures.h"
#include "viewer/ReportPicture.h"

// The pictures of a report's figures.
namespace tallybrook {

/// All pictures of a report, in the order of its text; none where there are no figures.
std::vector<ReportPicture> picturesOf(const ReportFigures& figures);

/// How many games scored in each range, as bars, with the high and the low game marked.
ReportPicture scoresPicture(const ScoreFigures& scores);

/// The high and the low series of each length, between 0 and 300 for each game.
ReportPicture seriesPicture(const std::vector<SeriesFigures>& series);

/// Strikes, spares and open frames as parts of a bar.
ReportPicture strikesPicture(const StrikeFigures& strikes);

/// A small rack for each leave, with the pins left standing, and how often the spare was made.
ReportPicture leavesPicture(const std::vector<LeaveFigures>& leaves);

/// What a game is among those of its event.
enum class Rank { Usual, High, Low };

/// A score sheet with its running totals.
ReportPicture sheetPicture(const GameFigures& game, Rank rank);

}  // namespace tallybrook
