#include "store/Update_Series.h"

#include "runtime/TextForms.h"
#include "store/WalkRows.h"

namespace tallybrook {

namespace {

/// Error 3021 passes without a box here: the procedure just goes on.
Handler seriesHandler(FailureReporter& reporter) {
    return Handler([&reporter](const RunTimeError& failure, int) {
        if (failure.number() != error::kNoCurrentRow)
            reporter.databaseError(failure, "TBK_Globals, Update_Series.");
        return Recovery::GoOn;
    });
}

struct Series {
    Int16 games;
    Int16 total;
    double average = 0;
};

/// Every game counts, one with a score of 0 too.
Series addUp(Store& store, const Handler& step, Int32 eventKey) {
    Series series;
    Recordset games(store);
    step([&] {
        games.Open("SELECT fldGameNum, fldGameScore FROM tblGameInfo WHERE fldSessionNum = " +
                   text(eventKey) + " ORDER BY fldGameNum");
    });
    step([&] { series.games = games.RecordCount(); });
    if (series.games > 0) {
        step([&] { games.MoveFirst(); });
        const auto rows = [&]() -> Recordset& { return games; };
        walkRows(step, rows, [&] { step([&] { series.total += toInt16(games["fldGameScore"]); }); });
        step([&] {
            series.average = readFormatted(
                formatNumber(series.total.value() / static_cast<double>(series.games.value()), 2));
        });
    }
    step([&] { games.Close(); });
    return series;
}

}  // namespace

void Update_Series(Store& store, FailureReporter& reporter, Int32 eventKey, SeriesVariables variables) {
    const Handler step = seriesHandler(reporter);
    const Series series = addUp(store, step, eventKey);
    variables.gSeriesTot = series.total;
    variables.gSeriesAvg = series.average;

    Recordset event(store);
    step([&] {
        event.Open(
            "SELECT fldSeriesTot, fldSeriesAvg, fldGmsRecorded FROM tblEventInfo WHERE fldSessionNum = " +
            text(eventKey));
    });
    step([&] { event["fldSeriesTot"] = valueOf(variables.gSeriesTot); });
    step([&] { event["fldSeriesAvg"] = variables.gSeriesAvg; });
    variables.gGmsRecorded = series.games;
    step([&] { event["fldGmsRecorded"] = valueOf(variables.gGmsRecorded); });
    step([&] { event.Update(); });
    step([&] { event.Close(); });
}

}  // namespace tallybrook
