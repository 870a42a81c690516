#pragma once

#include "runtime/DateTime.h"
#include "runtime/Integer.h"

#include <array>
#include <optional>
#include <string_view>
#include <vector>

namespace tallybrook {

class ReportRun;
template <typename Figures>
class Counted;

/// How many games have a score of one kind. No score ever falls into the bin "280 - 297", nor does one of 280
/// to 297, or above 300, fall into any other.
struct GameBin {
    std::string_view label;
    int first;  // of the scores that it counts
    int last;
    Int32 games;
};

/// The high and the low series of the events of one number of games. The low begins one above the highest
/// series that there can be, and has no date until one is found below it.
struct SeriesRow {
    Int16 high = -1;
    DateTime highDate = kZeroDate;
    Int16 low;
    std::optional<DateTime> lowDate = std::nullopt;
};

/// What the statistical report tells of games and series.
struct ScoreSummary {
    std::array<GameBin, 14> GameBins = emptyBins();
    std::vector<SeriesRow> SeriesMatrix;  // by the number of games; row 0 is not printed
    Int16 HighGame;
    DateTime HighGameDate = kZeroDate;
    Int16 LowGame = 301;
    DateTime LowGameDate = kZeroDate;

    static std::array<GameBin, 14> emptyBins();

    /// Makes room for series of 1 to `games` games; error 6 for 110 games or more.
    void allow(Int32 games);
    /// Error 9 for a number of games that there is no room for.
    void countSeries(Int16 games, Int16 total, DateTime date);
    /// A game that sets a new high is not looked at for the low.
    void countGame(Int16 score, DateTime date);
};

/// Gives the summary of games and series.
void Build_Sum_Matrix(ReportRun& run, const Counted<ScoreSummary>& scores);

}  // namespace tallybrook
