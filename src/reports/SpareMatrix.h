#pragma once

#include "reports/StrikeSpareCounts.h"

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

namespace tallybrook {

class EventRows;
class ReportRun;
struct StoredFrame;
template <typename Figures>
class Counted;

/// One leave, with how often it was met and spared.
struct SpareRow {
    std::string leave;  // the pins left, exactly as stored
    Int32 attempts = {};
    Int32 conversions = {};
    std::string percentage = {};  // of the attempts, two decimals
    std::string perGame = {};     // attempts per pinfall game, one decimal
};

/// The leaves of a report in the order in which they were first met.
class SpareMatrix {
public:
    [[nodiscard]] const std::vector<SpareRow>& rows() const { return rows_; }

    /// Counts one attempt at a leave. Error 6 when there are more leaves than a 16-bit index counts.
    void count(const std::string& leave, bool converted);
    /// Works out percentage and attempts per game of every row.
    void derive(Int32 pinfallGames);

private:
    std::vector<SpareRow> rows_;
    std::unordered_map<std::string, std::size_t> places_;  // of the leaves among the rows
};

/// What is counted of first balls.
struct FirstBallFigures {
    Int32 SinglePinAttempts;   // frames 1 to 9 whose first mark is "9"
    Int32 SinglePinConverted;  // those of them whose second mark is "/"
    Int16 FirstBallAvg;        // pins per first ball, a whole number
    double SinglePinPct = 0;   // one decimal
    Int32 SinglePinAvg;        // attempts per game, a whole number
};

/// Leaves and first balls of the games recorded as pinfall or line score.
class SpareFigures {
public:
    SpareMatrix matrix;
    FirstBallFigures firstBalls;
    bool isMatrixFull = false;  // a leave could not be counted

    void countGames(EventRows& event);
    /// Works out what the counts come to.
    void derive(const ScoringModes& modes);

private:
    void countFrame(const StoredFrame& frame, bool isPinfall);
    void countUpToNinth(const StoredFrame& frame, bool isPinfall);
    void countTenth(const StoredFrame& frame, bool isPinfall);
    void addFirstBalls(int balls, int pins);
    void addLeave(const Value& leave, bool converted);

    Int32 balls_;
    Int32 pins_;
};

/// Gives the matrix and the figures of first balls, with what they come to. A leave that could not be counted
/// is told as a failure of Add_Spare_Matrix first.
void Build_Sp_Sum(ReportRun& run, Counted<SpareFigures>& spares, const ScoringModes& modes);

/// Writes the block on strikes, spares, open frames and single pins.
void Print_Spare_Summary(ReportRun& run, const ScoringModes& modes, const StrikeSpareCounts& counts,
                         const FirstBallFigures& figures);

/// Writes the block with the spare matrix.
void Print_Spare_Matrix(ReportRun& run, const SpareMatrix& matrix, const ScoringModes& modes);

}  // namespace tallybrook
