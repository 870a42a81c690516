#include "reports/modTBKReports.h"

#include "reports/CountedFigures.h"
#include "reports/EventReport.h"
#include "reports/ReportRun.h"
#include "reports/ScoreSummary.h"
#include "reports/SpareMatrix.h"
#include "reports/StatisticalReport.h"
#include "reports/StrikeSpareCounts.h"
#include "runtime/TextForms.h"
#include "shell/Configuration.h"
#include "shell/SharedFile.h"
#include "shell/TBK_Globals.h"

#include <filesystem>
#include <string>

#include <fmt/format.h>

namespace tallybrook {

namespace {

constexpr int kNoConfiguration = 20;
constexpr int kTitleColumn = 24;

bool isEventReport(const ReportRequest& request) {
    return request.kind == "Summary" || request.kind == "Full";
}

bool isAllEvents(const ReportRequest& request) {
    return request.evType == "All Events";
}

std::string datePart(const ReportRequest& request) {
    return fmt::format(" {} fldDateBowled >= #{}# and fldDateBowled <= #{}#",
                       isAllEvents(request) ? "WHERE" : "AND", shortDate(request.dateFrom),
                       shortDate(request.dateTo));
}

std::string namePart(const ReportRequest& request) {
    const bool isFirst = isAllEvents(request) && request.dateFrom == kZeroDate;
    return fmt::format(" {} fldEventName = '{}'", isFirst ? "WHERE" : "AND", request.filter);
}

std::string selectionOf(const ReportRequest& request) {
    if (isEventReport(request))
        return "SELECT * FROM tblEventInfo WHERE fldSessionNum = " + text(request.eventKey);
    std::string sql = "SELECT * FROM tblEventInfo";
    if (!isAllEvents(request))
        sql += fmt::format(" WHERE fldEventType = '{}'", request.evType);
    if (request.dateFrom != kZeroDate && request.dateTo != kZeroDate)
        sql += datePart(request);
    if (!request.filter.empty())
        sql += namePart(request);
    return sql;
}

std::string atTitleColumn(const std::string& title) {
    return std::string(kTitleColumn - 1, ' ') + title;
}

/// One report from its first step to its last.
class Report {
public:
    Report(Program& program, const ReportRequest& request)
        : run_(program), request_(request), now_(withoutSeconds(program.clock.now())) {}

    void write() {
        run_.procedure("Write_Report", [this] {
            run_.createRecordsets();
            run_.openFile(request_.file);
            Form_SQL();
            Open_DB();
            Write_Header();
            Get_Sc_Mode();
            Get_StSp_Stats(run_, figures_.strikes, modes());
            Build_Sp_Sum(run_, figures_.spares, modes());
            writeBody();
            run_.closeFile();
            run_.clearRecordsets();
            if (request_.copyToHandheld)
                Copy_Report_HH();
        });
    }

private:
    void Form_SQL() {
        run_.procedure("Form_SQL", [this] { run_.gReportSQL = selectionOf(request_); });
    }

    void Open_DB() {
        run_.procedure("Open_DB", [this] {
            run_.requireRecordsets();
            run_.gReportCount = countRows(run_.program.store(), run_.gReportSQL);
        });
    }

    void Write_Header() {
        run_.procedure("Write_Header", [this] {
            if (isEventReport(request_))
                writeEventHeader();
            else
                writeStatisticsHeader();
        });
    }

    void writeTitles(const std::string& kind) {
        run_.print(atTitleColumn("Tallybrook 2.0"));
        run_.print(atTitleColumn(kind));
        run_.print(fmt::format("\r\nReport Date: {}, {}", shortDate(now_), timeText(now_)));
    }

    void writeEventHeader() {
        writeTitles("Event Report - " + request_.kind);
        run_.print("Event: " + request_.filter);
        run_.gRsEvent->Open(run_.gReportSQL);
        run_.print("Event Date: " + toText(run_.gRsEvent->Fields("fldDateBowled")));
        run_.gRsEvent->Close();
    }

    void writeStatisticsHeader() {
        writeTitles("Statistical Report");
        run_.print("Report Type: " + request_.evType);
        if (request_.dateFrom != kZeroDate)
            run_.print(
                fmt::format("Date Range: {} to {}", dateText(request_.dateFrom), dateText(request_.dateTo)));
        if (!request_.filter.empty())
            run_.print("Filter: " + request_.filter);
        run_.print(fmt::format("\r\nFound {} matching events.", text(run_.gReportCount)));
    }

    /// The one walk over all that the report covers comes first.
    void Get_Sc_Mode() {
        run_.procedure("Get_Sc_Mode", [this] {
            countFigures(run_, figures_, !isEventReport(request_));
            figures_.modes.raiseFailure();
            run_.print(fmt::format(
                "\r\nScoring Mode Summary: \r\nPinfall Mode: {} games,   Line Score: {} games,   "
                "Game Score only: {} games.",
                text(modes().PinfallGames), text(modes().LineScoreGames), text(modes().ScoreOnlyGames)));
        });
    }

    [[nodiscard]] const ScoringModes& modes() const { return figures_.modes.figures; }

    void writeBody() {
        const auto writeSpares = [this] {
            const SpareFigures& spares = figures_.spares.figures;
            Print_Spare_Summary(run_, modes(), figures_.strikes.figures, spares.firstBalls);
            Print_Spare_Matrix(run_, spares.matrix, modes());
        };
        if (isEventReport(request_))
            return Write_Event(run_, request_, writeSpares);
        Build_Sum_Matrix(run_, figures_.scores);
        Write_Stats(run_, request_, figures_.scores.figures, writeSpares);
    }

    void Copy_Report_HH() {
        const SessionState& session = run_.program.session;
        if ((session.gHHType.empty() || session.gHHSyncDir.empty()) && !Read_Config(run_.program)) {
            run_.program.display.messageBox(
                {.text = lines({"Handheld configuration could not be read.",
                                "Please go to the Main Menu and run File, then Handheld Setup."}),
                 .title = "No PDA Configuration",
                 .icon = Icon::Critical});
            throw RunTimeError(kNoConfiguration, "Resume without error");
        }
        if (session.gHHSyncDir.empty())
            throw RunTimeError(error::kPathNotFound);
        const std::filesystem::path file = request_.file;
        copySharedFile(run_.program, file, std::filesystem::path(session.gHHSyncDir) / file.filename());
    }

    ReportRun run_;
    const ReportRequest& request_;
    DateTime now_;
    CountedFigures figures_;
};

}  // namespace

void Write_Report(Program& program, const ReportRequest& request) {
    Report(program, request).write();
}

}  // namespace tallybrook
