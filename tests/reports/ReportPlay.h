#pragma once

#include "reports/modTBKReports.h"
#include "shell/TBK_Globals.h"
#include "support/Play.h"
#include "support/SameText.h"

#include <string>
#include <vector>

namespace tallybrook::test {

/// The program with a hand for logbooks and reports.
class ReportPlay : public Play {
public:
    struct Event {
        std::string name = "Thursday League";
        DateTime date = makeDate(2026, 11, 12);
        std::string type = "LEAGUE";
        Value games = std::int64_t{3};
        Value total = std::int64_t{0};
        Value average = 0.0;
        std::string comment = {};
    };
    /// Adds an event; the games that are added from here on are its own.
    void addEvent(const Event& event) {
        ++session_;
        insert("tblEventInfo", {{"fldEventName", event.name},
                                {"fldDateBowled", event.date},
                                {"fldEventType", event.type},
                                {"fldNumGames", event.games},
                                {"fldSeriesTot", event.total},
                                {"fldSeriesAvg", event.average},
                                {"fldComment", event.comment}});
        game_ = 0;
    }
    /// Adds a game to the event added last; the frames that are added from here on are its own.
    void addGame(const Value& type, const Value& score = std::int64_t{0}, const Fields& more = {}) {
        ++game_;
        frame_ = 0;
        Fields fields{{"fldSessionNum", session_},
                      {"fldGameNum", game_},
                      {"fldScoreType", type},
                      {"fldGameScore", score}};
        fields.insert(fields.end(), more.begin(), more.end());
        insert("tblGameInfo", fields);
    }
    /// Adds the next frame of the game added last.
    void addFrame(const Value& lineScore, const Value& first = "", const Value& second = "",
                  const Value& fill = "", const Fields& more = {}) {
        ++frame_;
        Fields fields{{"fldSessionNum", session_}, {"fldGameNum", game_},      {"fldFrameNum", frame_},
                      {"fldLineScore", lineScore}, {"fldFirstBallRes", first}, {"fldSecondBallRes", second},
                      {"fldFillBallRes", fill}};
        fields.insert(fields.end(), more.begin(), more.end());
        insert("tblFrameInfo", fields);
    }
    /// Lets the next frame added have this number.
    void nextFrameIs(int number) { frame_ = number - 1; }

    /// Writes a report, with the boxes that it brings up, and returns the file's bytes.
    std::string report(ReportRequest request, const std::vector<Expected>& boxes = {}) {
        request.file = file().string();
        run([&] { Write_Report(program(), request); }, boxes);
        return bytesOf(file());
    }
    std::string eventReport(const std::string& kind, int eventKey = 1,
                            const std::vector<Expected>& boxes = {}) {
        return report({.kind = kind, .filter = "Thursday League", .eventKey = eventKey}, boxes);
    }
    std::string statistics(const std::vector<Expected>& boxes = {}) {
        return report({.kind = "Statistics", .evType = "All Events"}, boxes);
    }
    [[nodiscard]] std::filesystem::path file() const { return dataFolder() / "report.txt"; }

    /// The box of a failure in a procedure of the reports.
    [[nodiscard]] static Expected failure(const std::string& procedure, int number) {
        return {"Database Error", Answer::OK,
                databaseErrorBox(RunTimeError(number), "TBK Reports, " + procedure + ".").text};
    }

private:
    std::int64_t session_ = 0;
    std::int64_t game_ = 0;
    std::int64_t frame_ = 0;
};

}  // namespace tallybrook::test
