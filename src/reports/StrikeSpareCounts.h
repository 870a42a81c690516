#pragma once

#include "bowling/TenthFrame.h"
#include "runtime/Integer.h"

namespace tallybrook {

class EventRows;
class ReportRun;
template <typename Figures>
class Counted;

/// How many games of a report were recorded in which way.
struct ScoringModes {
    Int32 PinfallGames = {};
    Int32 LineScoreGames = {};
    Int32 ScoreOnlyGames = {};

    /// Counts the games of an event by their score types.
    void countGames(EventRows& event);
    /// The games that have frames: the divisor of the figures per game.
    [[nodiscard]] Int32 gamesWithFrames() const { return PinfallGames + LineScoreGames; }
};

/// Strikes, spares and open frames of a report's events. Percentages have one decimal; figures per game are
/// whole numbers.
struct StrikeSpareCounts {
    Int32 FirstBalls;  // racks on which a strike was possible
    Int32 Strikes;
    Int32 StrikeAvg;
    double StrikePct = 0;  // of FirstBalls
    Int32 SpareChances;    // first balls that left pins
    Int32 Spares;
    Int32 SpareAvg;
    double SparePct = 0;  // of SpareChances
    Int32 OpenFrames;
    Int32 OpenAvg;
    double OpenPct = 0;  // of SpareChances

    /// Counts the frames of all games of an event, whatever their score type.
    void countGames(EventRows& event);
    /// Counts one of the frames 1 to 9 by its balls.
    void countFrame(const Value& firstBall, const Value& secondBall);
    /// Counts a tenth frame; one of no known kind counts nothing.
    void countTenthFrame(const TenthFrameValues& frame);
    /// Works out the percentages and the figures per game.
    void derive(const ScoringModes& modes);
};

/// A count per game as a whole number, ties to even; 0 without games.
Int32 perGame(Int32 count, Int32 games);

/// A part as a percentage of a whole, with one decimal; 0 of nothing.
double percentage(Int32 part, Int32 whole);

/// Gives the counts of strikes, spares and open frames, by the marks of the balls, with what they come to.
void Get_StSp_Stats(ReportRun& run, Counted<StrikeSpareCounts>& strikes, const ScoringModes& modes);

}  // namespace tallybrook
