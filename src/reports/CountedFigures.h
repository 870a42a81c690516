#pragma once

#include "reports/ScoreSummary.h"
#include "reports/SpareMatrix.h"
#include "reports/StrikeSpareCounts.h"
#include "runtime/RunTimeError.h"

#include <optional>

namespace tallybrook {

class ReportRun;

/// What a procedure of a report gives out. The figures of all procedures are counted in one walk; what fails
/// on the way ends the counting of the figures at hand, and is raised when it is their procedure's turn.
template <typename Figures>
class Counted {
public:
    Figures figures;

    /// Lets `count` count on, unless it has failed before.
    template <typename Count>
    void count(Count count) {
        if (failure_)
            return;
        try {
            withMemoryErrors([&] { count(figures); });
        } catch (const RunTimeError& failure) {
            failure_ = failure;
        }
    }
    [[nodiscard]] bool hasFailed() const { return failure_.has_value(); }
    /// Raises what the counting failed with, if it did.
    void raiseFailure() const {
        if (failure_)
            throw RunTimeError(*failure_);
    }

private:
    std::optional<RunTimeError> failure_;
};

/// What a report counts over its events, their games and their frames.
struct CountedFigures {
    Counted<ScoringModes> modes;
    Counted<StrikeSpareCounts> strikes;
    Counted<SpareFigures> spares;
    Counted<ScoreSummary> scores;  // of the statistical report alone
};

/// Counts all figures; the scores only if they are wanted. A selection of no events is a failure of the
/// modes.
void countFigures(ReportRun& run, CountedFigures& figures, bool withScores);

}  // namespace tallybrook
