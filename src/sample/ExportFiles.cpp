#include "sample/ExportFiles.h"

#include "runtime/TextForms.h"

#include <string>
#include <string_view>

namespace tallybrook::sample {

namespace {

/// The line of a live record: its fields behind record ID and status, in their order.
class Record {
public:
    explicit Record(const std::string& recordId) : line_(recordId + ",0x0000") {}

    /// Closed by the next comma. Never empty: the reader stays on an empty one.
    Record& bare(std::string_view text) {
        line_.append(",").append(text);
        return *this;
    }
    Record& bare(int number) { return bare(std::to_string(number)); }
    Record& quoted(std::string_view text) {
        line_.append(",\"").append(text).append("\"");
        return *this;
    }

    [[nodiscard]] const std::string& line() const { return line_; }

private:
    std::string line_;
};

TextWriter begin(const std::filesystem::path& folder, std::string_view table, int records) {
    TextWriter file(folder / (std::string(table) + ".cdb"), TextWriter::Mode::Overwrite,
                    Encoding::Windows1252);
    file.writeLine("# " + std::string(table));
    file.writeLine("# RECCNT=" + std::to_string(records));  // the number in column 10
    return file;
}

}  // namespace

ExportFiles::ExportFiles(const std::filesystem::path& folder, const Counts& counts)
    : events_(begin(folder, "tblEvent", counts.events)),
      games_(begin(folder, "tblGame", counts.games)),
      frames_(begin(folder, "tblFrame", counts.frames)) {}

void ExportFiles::add(const Event& event) {
    ++counts_.events;
    events_.writeLine(Record(event.recordId)
                          .bare(counts_.events)
                          .quoted(event.name)
                          .quoted(shortDate(event.date))
                          .quoted(event.type)
                          .quoted(event.centerName)
                          .quoted(event.centerLocation)
                          .quoted(event.comment)
                          .bare(event.plannedGames)
                          .bare(doubleText(event.seriesAverage()))
                          .bare(event.seriesTotal())
                          .line());
    for (const Game& game : event.games)
        addGame(game);
}

void ExportFiles::addGame(const Game& game) {
    constexpr int kUnused = 0;
    ++counts_.games;
    games_.writeLine(Record(game.recordId)
                         .bare(counts_.games)
                         .bare(counts_.events)
                         .bare(game.number)
                         .bare(game.score)
                         .bare(kUnused)
                         .bare(game.leftLane())
                         .bare(game.rightLane())
                         .bare(game.startLane)
                         .quoted(game.lanePair())
                         .quoted(game.scoreType)
                         .quoted(game.laneCondition)
                         .quoted(game.comment)
                         .line());
    for (const Frame& frame : game.frames)
        addFrame(game, frame);
}

void ExportFiles::addFrame(const Game& game, const Frame& frame) {
    ++counts_.frames;
    frames_.writeLine(Record(frame.recordId)
                          .bare(counts_.frames)
                          .bare(counts_.events)
                          .bare(counts_.games)
                          .bare(frame.number)
                          .bare(game.number)
                          .bare(frame.lane)
                          .quoted(frame.ball)
                          .quoted(frame.footPosition)
                          .quoted(frame.target)
                          .quoted(frame.first)
                          .quoted(frame.second)
                          .quoted(frame.fill)
                          .quoted(frame.lineScore)
                          .quoted(frame.comment)
                          .line());
}

void ExportFiles::finish() {
    for (TextWriter* const file : {&events_, &games_, &frames_})
        file->close();
}

}  // namespace tallybrook::sample
