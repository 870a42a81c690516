#include "reports/StatisticalReport.h"

#include "reports/ReportRun.h"
#include "runtime/TextForms.h"

#include <string>
#include <string_view>

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
        run_.requireRecordsets();
        if (run_.gReportCount > 0)
            writeEvents();
        writeGames();
        writeSeries();
    }

private:
    void writeEvents() {
        writeTotals();
        run_.print(fmt::format("\r\nEvent Listing ({} events found):", text(run_.gReportCount)));
        run_.print(std::string(59, '-'));
        RowStream events = run_.events({"fldEventName", "fldDateBowled", "fldEventType", "fldNumGames",
                                        "fldSeriesTot", "fldSeriesAvg", "fldComment"});
        while (events.next())
            run_.print(entryOf(events));
    }

    void writeTotals() {
        Totals totals;
        RowStream events = run_.events({"fldSeriesTot", "fldNumGames"});
        while (events.next()) {
            totals.pinfall += toInt32(events[0]);
            totals.games += toInt32(events[1]);
        }
        const double average = totals.average();
        run_.print("\r\nEvent Summary\r\n-------------");
        run_.print(fmt::format("Total Games: {}\t\tTotal Pinfall: {}\tAverage: {}", text(totals.games),
                               text(totals.pinfall), doubleText(average)));
    }

    [[nodiscard]] std::string entryOf(const RowStream& event) const {
        std::string entry;
        const auto add = [&](std::string_view label, std::size_t field, std::string_view behind) {
            const Value value = event[field];
            std::string made;
            entry.append(label).append(toText(value, made)).append(behind);
        };
        add("Event: ", 0, "\t\t");
        add("Date Bowled: ", 1, "\r\n");
        if (listsTypes_)
            add("Event Type: ", 2, "\r\n");
        add("Games Bowled: ", 3, "\t\t");
        add("Pinfall: ", 4, "\t");
        add("Event Average: ", 5, "\r\n");
        add("Comment: ", 6, "\r\n");
        return entry;
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
