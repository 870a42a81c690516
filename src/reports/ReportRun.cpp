#include "reports/ReportRun.h"

#include "runtime/TextForms.h"
#include "shell/TBK_Globals.h"

#include <fmt/format.h>

namespace tallybrook {

void ReportRun::print(std::string_view line) {
    if (!gReportFile_)
        throw RunTimeError(error::kBadFileNameOrNumber);
    gReportFile_->writeLine(line);
}

void ReportRun::closeFile() {
    if (gReportFile_)
        gReportFile_->close();
}

void ReportRun::createRecordsets() {
    for (RecordsetVariable* const rows : {&gRsEvent, &gRsGame, &gRsFrame})
        rows->create(program.store());
}

void ReportRun::clearRecordsets() {
    for (RecordsetVariable* const rows : {&gRsEvent, &gRsGame, &gRsFrame})
        rows->setToNothing();
}

RowStream ReportRun::events(std::initializer_list<std::string_view> fields) const {
    requireRecordsets();
    return {program.store(), gReportSQL, fields};
}

void ReportRun::giveUp(const RunTimeError& failure, std::string_view procedure) {
    program.reporter.databaseError(failure, fmt::format("TBK Reports, {}.", procedure));
    gReportFile_.reset();
    clearRecordsets();
}

std::string gamesOf(Int32 eventKey) {
    return "SELECT * FROM tblGameInfo WHERE fldSessionNum = " + text(eventKey) + " ORDER BY fldGameNum";
}

std::string framesOf(Int32 eventKey, Int16 game) {
    return fmt::format(
        "SELECT * FROM tblFrameInfo WHERE fldSessionNum = {} AND fldGameNum = {} ORDER BY fldFrameNum",
        eventKey.value(), game.value());
}

TenthFrameValues tenthFrameIn(const StoredFrame& frame) {
    return {.first = frame.firstBall,
            .second = frame.secondBall,
            .fill = frame.fillBall,
            .lineScore = frame.lineScore};
}

double roundedTo(double number, int decimals) {
    return readFormatted(formatNumber(number, decimals));
}

}  // namespace tallybrook
