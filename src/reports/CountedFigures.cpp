#include "reports/CountedFigures.h"

#include "reports/ReportRun.h"
#include "store/EventRows.h"
#include "store/RowStream.h"

#include <cstdint>
#include <utility>

namespace tallybrook {

namespace {

/// The key of an event as it stands, however large.
std::int64_t keyIn(const Value& value) {
    const auto* const key = std::get_if<std::int64_t>(&value);
    return key != nullptr ? *key : toInt32(value).value();
}

/// The walk over the events.
class FigureWalk {
public:
    FigureWalk(ReportRun& run, CountedFigures& figures, bool withScores, WalkBy by)
        : run_(run), figures_(figures), withScores_(withScores), rows_(run.program.store(), by) {}

    /// Returns whether all has been found.
    bool walk(ScoringModes& modes) {
        RowStream events = run_.events({"fldSessionNum", "fldSeriesTot", "fldNumGames", "fldDateBowled"});
        // A selection of no events ends here.
        if (!events.next())
            throw RunTimeError(error::kNoCurrentRow);
        do {
            rows_.goTo(keyIn(events[0]));
            modes.countGames(rows_);
            countEvent(events);
        } while (events.next());
        return rows_.isWhole();
    }

private:
    void countEvent(const RowStream& event) {
        figures_.strikes.count([&](StrikeSpareCounts& strikes) {
            static_cast<void>(toInt32(event[0]));
            strikes.countGames(rows_);
        });
        figures_.spares.count([&](SpareFigures& spares) { spares.countGames(rows_); });
        if (withScores_)
            figures_.scores.count([&](ScoreSummary& scores) { countScores(scores, event); });
    }

    void countScores(ScoreSummary& scores, const RowStream& event) {
        const Int16 total = toInt16(event[1]);
        const Int16 games = toInt16(event[2]);
        const DateTime date = toDate(event[3], run_.program.clock.year());
        scores.countSeries(games, total, date);
        for (const StoredGame& game : rows_.games())
            scores.countGame(toInt16(game.score), date);
    }

    ReportRun& run_;
    CountedFigures& figures_;
    bool withScores_;
    EventRows rows_;
};

/// How many games the longest series has, as planned.
Int32 longestSeries(ReportRun& run) {
    Int32 longest;
    RowStream events = run.events({"fldNumGames"});
    while (events.next()) {
        if (const Value games = events[0]; !isNull(games))
            longest = std::max(longest, toInt32(games));
    }
    return longest;
}

/// Returns whether all has been found and counted.
bool count(ReportRun& run, CountedFigures& figures, bool withScores, WalkBy by) {
    bool isWhole = false;
    if (withScores)
        figures.scores.count([&](ScoreSummary& scores) {
            if (const Int32 longest = longestSeries(run); longest > 0)
                scores.allow(longest);
        });
    figures.modes.count(
        [&](ScoringModes& modes) { isWhole = FigureWalk(run, figures, withScores, by).walk(modes); });
    return isWhole && !figures.modes.hasFailed() && !figures.strikes.hasFailed() &&
           !figures.spares.hasFailed() && !figures.scores.hasFailed();
}

/// Whether there are more events than that. No more of them are looked at, so a report on a few does not
/// cost the more the larger the logbook is.
bool hasMoreEvents(Store& store, std::int64_t count) {
    RowStream events(store, "SELECT * FROM tblEventInfo", {"fldSessionNum"});
    while (events.next()) {
        if (--count < 0)
            return true;
    }
    return false;
}

/// Whether a walk by the tables costs less than one by the index, as far as can be told.
bool coversMostEvents(const ReportRun& run) {
    try {
        return !hasMoreEvents(run.program.store(), 2 * std::int64_t{run.gReportCount.value()});
    } catch (const RunTimeError&) {
        return false;
    }
}

}  // namespace

/// What a walk by the tables can have missed, or has failed in, is counted anew by the index.
void countFigures(ReportRun& run, CountedFigures& figures, bool withScores) {
    CountedFigures quick;
    if (coversMostEvents(run) && count(run, quick, withScores, WalkBy::Table))
        figures = std::move(quick);
    else
        count(run, figures, withScores, WalkBy::Index);
}

}  // namespace tallybrook
