#include "reports/EventReport.h"

#include "reports/ReportRun.h"
#include "runtime/TextForms.h"

#include <string>

#include <fmt/format.h>

namespace tallybrook {

namespace {

class EventBody {
public:
    EventBody(ReportRun& run, const ReportRequest& request)
        : run_(run), eventKey_(request.eventKey), isFull_(request.kind == "Full") {}

    void write() {
        forEachRow(run_.gRsEvent, run_.gReportSQL, [this] {
            writeEvent(*run_.gRsEvent);
            writeGames();
        });
    }

private:
    void writeEvent(Recordset& event) {
        run_.print(fmt::format("\r\nEvent Summary: \r\nGames Bowled: {}   Pinfall: {}   Event Average: {}",
                               toText(event["fldNumGames"]), toText(event["fldSeriesTot"]),
                               formatNumber(toDouble(event["fldSeriesAvg"]), 2)));
        run_.print("Event Comments: " + toText(event["fldComment"]));
    }

    void writeGames() {
        bool isFirst = true;
        forEachRow(run_.gRsGame, gamesOf(eventKey_), [&] {
            if (isFirst)
                run_.print("\r\nGame Summary:");
            isFirst = false;
            writeGame(*run_.gRsGame);
        });
    }

    void writeGame(Recordset& game) {
        const Int16 number = toInt16(game["fldGameNum"]);
        run_.print(fmt::format(
            "\r\nGame {}   Game Score: {}   Lane Pair: {}   Starting Lane: {}\r\n"
            "Lane Condition: {}\r\nComment: {}",
            toText(game["fldGameNum"]), toText(game["fldGameScore"]), toText(game["fldLanePair"]),
            toText(game["fldStartLane"]), toText(game["fldLaneCond"]), toText(game["fldComment"])));
        const std::string scoreType = toText(game["fldScoreType"]);
        if (scoreType == "P" || scoreType == "L")
            writeFrames(number);
        else
            run_.print("Game score only was recorded. No frames recorded for this game.");
    }

    void writeFrames(Int16 game) {
        Recordset& frames = *run_.gRsFrame;
        frames.Open(framesOf(eventKey_, game));
        if (frames.RecordCount() > 0) {
            writeLineScore(frames);
            if (isFull_)
                writeFrameDetail(frames);
        }
        frames.Close();
    }

    void writeLineScore(Recordset& frames) {
        std::string marks;
        for (frames.MoveFirst(); !frames.Eof(); frames.MoveNext()) {
            if (toDouble(frames["fldFrameNum"]) != 1)
                marks += '\t';
            marks += toText(frames["fldLineScore"]);
        }
        run_.print("\r\nLine Score:\r\n-----------\r\n1\t2\t3\t4\t5\t6\t7\t8\t9\t10\r\n" + marks + "\r\n");
    }

    void writeFrameDetail(Recordset& frames) {
        run_.print("Frame Summary\r\n-------------");
        for (frames.MoveFirst(); !frames.Eof(); frames.MoveNext())
            writeFrame(frames);
    }

    void writeFrame(Recordset& frame) {
        run_.print(fmt::format("Frame {}   Lane Bowled: {}", toText(frame["fldFrameNum"]),
                               toText(frame["fldLaneBowled"])));
        run_.print("Ball Used: " + toText(frame["fldBallUsed"]));
        run_.print(fmt::format("Foot Position: {}   Lane Target: {}", toText(frame["fldFootPos"]),
                               toText(frame["fldLaneTgt"])));
        std::string balls = fmt::format("First Ball: {}   Second Ball: {}", toText(frame["fldFirstBallRes"]),
                                        toText(frame["fldSecondBallRes"]));
        if (toDouble(frame["fldFrameNum"]) >= 10)
            balls += "   Fill Ball: " + toText(frame["fldFillBallRes"]);
        run_.print(balls);
        run_.print("Comment: " + toText(frame["fldComment"]) + "\r\n--------------------");
    }

    ReportRun& run_;
    Int32 eventKey_;
    bool isFull_;
};

}  // namespace

void Write_Event(ReportRun& run, const ReportRequest& request, const std::function<void()>& writeSpares) {
    run.procedure("Write_Event", [&] {
        EventBody(run, request).write();
        writeSpares();
    });
}

}  // namespace tallybrook
