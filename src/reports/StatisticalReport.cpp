#include "reports/StatisticalReport.h"

#include "reports/ReportRun.h"
#include "runtime/TextForms.h"

#include <string>

#include <fmt/format.h>

namespace tallybrook {

namespace {

/// What the selected events come to; games as planned, not as recorded.
struct Totals {
    Int32 pinfall;
    Int32 games;

    [[nodiscard]] double average() const {
        return games == 0 ? 0 : roundedTo(static_cast<double>(pinfall.value()) / games.value(), 2);
    }
};

class StatisticsBody {
public:
    StatisticsBody(ReportRun& run, const ReportRequest& request, const ScoreSummary& summary)
        : run_(run), listsTypes_(request.evType == "All Events"), summary_(summary) {}

    void write() {
        run_.gReportSQL += " ORDER BY fldDateBowled";
        run_.gRsEvent->Open(run_.gReportSQL);
        if (run_.gRsEvent->RecordCount() > 0)
            writeEvents(*run_.gRsEvent);
        run_.gRsEvent->Close();
        writeGames();
        writeSeries();
    }

private:
    void writeEvents(Recordset& events) {
        writeTotals(events);
        run_.print(fmt::format("\r\nEvent Listing ({} events found):", events.RecordCount()));
        run_.print(std::string(59, '-'));
        for (events.MoveFirst(); !events.Eof(); events.MoveNext())
            run_.print(entryOf(events));
    }

    void writeTotals(Recordset& events) {
        Totals totals;
        for (events.MoveFirst(); !events.Eof(); events.MoveNext()) {
            totals.pinfall += toInt32(events["fldSeriesTot"]);
            totals.games += toInt32(events["fldNumGames"]);
        }
        const double average = totals.average();
        run_.print("\r\nEvent Summary\r\n-------------");
        run_.print(fmt::format("Total Games: {}\t\tTotal Pinfall: {}\tAverage: {}", text(totals.games),
                               text(totals.pinfall), doubleText(average)));
    }

    [[nodiscard]] std::string entryOf(Recordset& event) const {
        std::string entry = fmt::format("Event: {}\t\tDate Bowled: {}\r\n", toText(event["fldEventName"]),
                                        toText(event["fldDateBowled"]));
        if (listsTypes_)
            entry += "Event Type: " + toText(event["fldEventType"]) + "\r\n";
        return entry + fmt::format("Games Bowled: {}\t\tPinfall: {}\tEvent Average: {}\r\nComment: {}\r\n",
                                   toText(event["fldNumGames"]), toText(event["fldSeriesTot"]),
                                   toText(event["fldSeriesAvg"]), toText(event["fldComment"]));
    }

    void writeGames() {
        run_.print("Game Statistics\r\n---------------");
        for (const GameBin& bin : summary_.GameBins)
            run_.print(std::string(bin.label) + text(bin.games));
        run_.print(fmt::format("\r\nHigh Game: {}\tDate Bowled: {}", text(summary_.HighGame),
                               dateText(summary_.HighGameDate)));
        run_.print(fmt::format("Low Game: {}\tDate Bowled: {}", text(summary_.LowGame),
                               dateText(summary_.LowGameDate)));
    }

    void writeSeries() {
        run_.print("\r\nSeries Summary\r\n--------------");
        for (std::size_t games = 1; games < summary_.SeriesMatrix.size(); ++games) {
            const SeriesRow& row = summary_.SeriesMatrix[games];
            if (row.high <= -1)
                continue;
            run_.print(fmt::format("High Series ({} games): {}", games, text(row.high)));
            run_.print("Date Bowled: " + dateText(row.highDate));
            run_.print(fmt::format("Low Series ({} games): {}", games, text(row.low)));
            run_.print("Date Bowled: " + (row.lowDate ? dateText(*row.lowDate) : text(row.low)));
        }
    }

    ReportRun& run_;
    bool listsTypes_;
    const ScoreSummary& summary_;
};

}  // namespace

void Write_Stats(ReportRun& run, const ReportRequest& request, const ScoreSummary& summary,
                 const std::function<void()>& writeSpares) {
    run.procedure("Write_Stats", [&] {
        StatisticsBody(run, request, summary).write();
        writeSpares();
    });
}

}  // namespace tallybrook
