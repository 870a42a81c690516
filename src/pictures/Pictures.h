#pragma once

#include "figures/FrameCosts.h"
#include "pictures/ReportPicture.h"
#include "readers/ReportFigures.h"

// The pictures of a report's figures.
namespace tallybrook {

/// All pictures of a report, in the order of its text; none where there are no figures.
std::vector<ReportPicture> picturesOf(ReportFigures figures);

/// The averages of events over their dates, moving averages, and the games of each month. There is at least
/// one event.
ReportPicture trendPicture(EventFigures events);

/// The days of each year with the nights bowled, shaded by their averages. There is at least one event.
ReportPicture calendarPicture(const BowledEvents& events);

/// How many games scored in each range, as bars, with the high and the low game marked.
ReportPicture scoresPicture(const ScoreFigures& scores);

/// The high and the low series of each length, between 0 and 300 for each game.
ReportPicture seriesPicture(const std::vector<SeriesFigures>& series);

/// Strikes, spares and open frames as parts of a bar.
ReportPicture strikesPicture(const StrikeFigures& strikes);

/// A small rack for each leave, with the pins left standing, and how often the spare was made.
ReportPicture leavesPicture(const std::vector<LeaveFigures>& leaves);

/// What the open frames of games cost against clean games, frame by frame and in all; there is at least one
/// game whose score is settled.
ReportPicture costsPicture(const std::vector<GameFigures>& games);

/// The leaves that were not spared, by the pins that they cost; there is at least one.
ReportPicture leaveCostsPicture(const std::vector<LeaveCost>& leaves);

/// The games as far as they are told, with their cells and leaves.
std::vector<RecordedGame> recordedGames(const std::vector<GameFigures>& games);

/// What a game is among those of its event.
enum class Rank { Usual, High, Low };

/// A score sheet with its running totals.
ReportPicture sheetPicture(const GameFigures& game, Rank rank);

}  // namespace tallybrook
