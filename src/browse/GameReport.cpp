#include "browse/GameReport.h"

#include "runtime/TextForms.h"
#include "shell/SharedFile.h"
#include "shell/TBK_Globals.h"
#include "store/WalkRows.h"

#include <fmt/format.h>

namespace tallybrook {

namespace {

const std::vector<ReportLine>& eventLines() {
    static const std::vector<ReportLine> kLines{{{"Event Name: ", "fldEventName"}},
                                                {{"Center Name: ", "fldCenterName"}},
                                                {{"Location: ", "fldCenterLoc"}},
                                                {{"Date Bowled: ", "fldDateBowled"}},
                                                {{"Comment: ", "fldComment"}}};
    return kLines;
}

const std::vector<ReportLine>& gameLines() {
    static const std::vector<ReportLine> kLines{
        {{"Game: ", "fldGameNum"}, {"\tLane Pair: ", "fldLanePair"}, {"\tGame Score: ", "fldGameScore"}},
        {{"Lane Condition: ", "fldLaneCond"}},
        {{"Comment: ", "fldComment"}}};
    return kLines;
}

const std::vector<ReportLine>& frameLines() {
    static const std::vector<ReportLine> kLines{{{"Frame: ", "fldFrameNum"}, {"\tLane: ", "fldLaneBowled"}},
                                                {{"Ball Used: ", "fldBallUsed"},
                                                 {"\tFoot Position: ", "fldFootPos"},
                                                 {"\tLane Target: ", "fldLaneTgt"}},
                                                {{"First Ball\tSecond Ball\tFill Ball"}},
                                                {{"----------\t-----------\t---------"}}};
    return kLines;
}

/// The balls of a frame; the fill ball from the tenth row on.
ReportLine ballLine(Int16 row) {
    ReportLine line{{"", "fldFirstBallRes"}, {"\t\t", "fldSecondBallRes"}};
    if (row >= kFrames)
        line.push_back({"\t\t", "fldFillBallRes"});
    return line;
}

std::string textOf(const ReportLine& line, Recordset& row) {
    std::string text;
    for (const auto& [words, field] : line)
        text += words + (field.empty() ? std::string{} : toText(row[field]));
    return text;
}

}  // namespace

GameReport::GameReport(Program& program, const Handler& step, const GameReportSources& sources)
    : program_(program), step_(step), sources_(sources) {}

void GameReport::open(const std::filesystem::path& file) {
    step_([&] { file_ = openSharedFile(program_, file); });
}

void GameReport::write() {
    writeEvent();
    writeGame();
    writeFrames();
    writeEnd();
}

void GameReport::close() {
    if (file_)
        step_([&] { file_->close(); });
}

void GameReport::writeEvent() {
    read(sources_.event, "SELECT tblEventInfo.* FROM tblEventInfo WHERE fldSessionNum = " +
                             text(program_.session.gSessionNum));
    writeLine("Report Date: " + dateText(program_.clock.now()));
    writeLine("Event Information");
    writeLine("*****************");
    for (const ReportLine& line : eventLines())
        writeLine(sources_.event, line);
}

void GameReport::writeGame() {
    read(sources_.game, ofGame("SELECT tblGameInfo.* FROM tblGameInfo"));
    writeHeading("Game");
    for (const ReportLine& line : gameLines())
        writeLine(sources_.game, line);
}

void GameReport::writeFrames() {
    read(sources_.frame, ofGame("SELECT tblFrameInfo.* FROM tblFrameInfo") + " ORDER BY fldFrameNum");
    writeHeading("Frame");
    if (step_.test([&] { return sources_.frame.recordset().RecordCount() == 0; }))
        return noteNoFrames();
    Int16 row = 1;
    const auto frames = [this]() -> Recordset& { return sources_.frame.recordset(); };
    walkRows(step_, frames, [&] {
        writeFrame(row);
        step_([&] { ++row; });
    });
    writeLineScore();
}

void GameReport::noteNoFrames() {
    program_.display.messageBox({.text = "No frames were recorded for this game.", .title = "No Frames"});
    writeLine("NOTE: No frames were recorded for this game.");
}

void GameReport::writeFrame(Int16 row) {
    for (const ReportLine& line : frameLines())
        writeLine(sources_.frame, line);
    writeLine(sources_.frame, ballLine(row));
    addToLineScore(row);
    writeLine(sources_.frame, {{"Comment: ", "fldComment"}});
    writeLine("*");
}

void GameReport::addToLineScore(Int16 row) {
    const auto ball = [this](const char* field) { return toText(sources_.frame.recordset()[field]); };
    step_([&] { lineScore_.addFirst(row, ball("fldFirstBallRes")); });
    step_([&] { lineScore_.addSecond(row, ball("fldFirstBallRes"), ball("fldSecondBallRes")); });
    step_([&] { lineScore_.addFill(row, ball("fldSecondBallRes"), ball("fldFillBallRes")); });
}

void GameReport::writeLineScore() {
    std::string numbers;
    std::string cells;
    for (int frame = 1; frame <= kFrames; ++frame) {
        numbers += std::to_string(frame) + "\t";
        cells += lineScore_.cell(frame) + "\t";
    }
    writeLine("Line Score:");
    writeLine(numbers);
    writeLine(cells);
}

void GameReport::writeEnd() {
    writeLine("");
    writeLine("Tallybrook 2.0 by the Tallybrook team");
    writeLine("All Rights Reserved");
}

void GameReport::read(DataControl& source, const std::string& statement) {
    source.setRecordSource(statement);
    step_([&] { source.Refresh(); });
}

std::string GameReport::ofGame(const std::string& start) const {
    return fmt::format("{} WHERE fldSessionNum = {} AND fldGameNum = {}", start,
                       text(program_.session.gSessionNum), text(program_.session.gGameNum));
}

void GameReport::writeHeading(const std::string& block) {
    writeLine(fmt::format("----- {} Information (Game #{}) -----", block, text(program_.session.gGameNum)));
}

void GameReport::writeLine(const std::string& line) {
    step_([&] { file().writeLine(line); });
}

void GameReport::writeLine(DataControl& source, const ReportLine& line) {
    step_([&] {
        const std::string written = textOf(line, source.recordset());
        file().writeLine(written);
    });
}

TextWriter& GameReport::file() {
    if (!file_)
        throw RunTimeError(error::kBadFileNameOrNumber);
    return *file_;
}

}  // namespace tallybrook
