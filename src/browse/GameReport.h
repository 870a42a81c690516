#pragma once

#include "bowling/PinfallLine.h"
#include "runtime/Handler.h"
#include "runtime/TextFile.h"
#include "shell/Program.h"
#include "store/DataControl.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tallybrook {

/// A piece of a report's line: words, and the value of a field behind them where one is named.
struct ReportPiece {
    std::string words;
    std::string field = {};
};
using ReportLine = std::vector<ReportPiece>;

/// The data controls that a report on a game reads through.
struct GameReportSources {
    DataControl& event;
    DataControl& game;
    DataControl& frame;
};

/// The text file with the report on the current game. Every statement runs under the handler given: after one
/// that fails, the report goes on.
class GameReport {
public:
    GameReport(Program& program, const Handler& step, const GameReportSources& sources);

    /// Opens the file, as openSharedFile() does.
    void open(const std::filesystem::path& file);
    /// Writes the report on game gGameNum of event gSessionNum.
    void write();
    /// Does nothing if the file could not be opened.
    void close();

private:
    void writeEvent();
    void writeGame();
    void writeFrames();
    void noteNoFrames();
    void writeFrame(Int16 row);
    void addToLineScore(Int16 row);
    void writeLineScore();
    void writeEnd();

    void read(DataControl& source, const std::string& statement);
    [[nodiscard]] std::string ofGame(const std::string& start) const;
    void writeHeading(const std::string& block);
    void writeLine(const std::string& line);
    void writeLine(DataControl& source, const ReportLine& line);
    TextWriter& file();

    Program& program_;
    const Handler& step_;
    GameReportSources sources_;
    std::optional<TextWriter> file_;
    PinfallLine lineScore_;
};

}  // namespace tallybrook
