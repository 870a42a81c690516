#include "sample/LogbookFile.h"

#include "runtime/Clock.h"
#include "store/Store.h"
#include "store/sql/FieldValue.h"
#include "store/sql/Schema.h"

#include <string>

#include <fmt/format.h>

namespace tallybrook::sample {

namespace fs = std::filesystem;

namespace {

/// One row on its way into a table, its values given in the order of the columns. Texts must live until it is
/// stored.
class Row {
public:
    explicit Row(SQLite::Statement& insert) : insert_(insert) {}

    Row& operator<<(int number) {
        insert_.bind(++columns_, number);
        return *this;
    }
    Row& operator<<(double number) {
        insert_.bind(++columns_, number);
        return *this;
    }
    Row& operator<<(const std::string& text) {
        insert_.bindNoCopy(++columns_, text);
        return *this;
    }
    void store() {
        insert_.exec();
        insert_.reset();
    }

private:
    SQLite::Statement& insert_;
    int columns_ = 0;
};

std::string insertInto(const char* table) {
    std::string columns;
    std::string values;
    for (const Column& column : findTable(table)->columns) {
        columns += (columns.empty() ? "" : ", ") + column.name;
        values += values.empty() ? "?" : ", ?";
    }
    return fmt::format("INSERT INTO {} ({}) VALUES ({})", table, columns, values);
}

const std::string& recordIdOf(const Event& event, const std::string& onHandheld) {
    static const std::string kNone = "NONE";
    return event.isFromHandheld ? onHandheld : kNone;
}

/// Makes the folder, and the file for what is to become a logbook in it.
fs::path beginIn(const fs::path& folder, const fs::path& file) {
    if (fs::symlink_status(file).type() != fs::file_type::not_found)
        throw LogbookExists("The folder holds a logbook already: " + file.string());
    fs::create_directories(folder / "TBRK" / "PDA DB Archive");
    fs::path unfinished = file.string() + ".unfinished";
    fs::remove(unfinished);
    const SystemClock clock;
    const Store empty(unfinished, clock);
    return unfinished;
}

}  // namespace

LogbookFile::Unfinished::~Unfinished() {
    std::error_code ignored;
    fs::remove(file, ignored);
}

LogbookFile::LogbookFile(const fs::path& folder)
    : file_(folder / "Tallybrook_DB.mdb"),
      unfinished_{beginIn(folder, file_)},
      database_(unfinished_.file.string(), SQLite::OPEN_READWRITE),
      transaction_(database_),
      insertEvent_(database_, insertInto("tblEventInfo")),
      insertGame_(database_, insertInto("tblGameInfo")),
      insertFrame_(database_, insertInto("tblFrameInfo")) {}

LogbookFile::~LogbookFile() = default;

void LogbookFile::add(const Event& event) {
    ++counts_.events;
    (Row(insertEvent_) << counts_.events << event.name << storedDate(event.date) << event.centerName
                       << event.centerLocation << event.type << event.plannedGames
                       << static_cast<int>(event.games.size()) << event.seriesTotal() << event.seriesAverage()
                       << event.comment << recordIdOf(event, event.recordId))
        .store();
    for (const Game& game : event.games)
        addGame(event, game);
}

void LogbookFile::addGame(const Event& event, const Game& game) {
    static const std::string kBowlHand = "N";
    ++counts_.games;
    (Row(insertGame_) << counts_.games << counts_.events << game.number << game.startLane << game.leftLane()
                      << game.rightLane() << game.lanePair() << game.score << game.laneCondition
                      << game.comment << game.scoreType << static_cast<int>(game.frames.size())
                      << recordIdOf(event, game.recordId) << kBowlHand)
        .store();
    for (const Frame& frame : game.frames)
        addFrame(event, game, frame);
}

void LogbookFile::addFrame(const Event& event, const Game& game, const Frame& frame) {
    ++counts_.frames;
    (Row(insertFrame_) << counts_.frames << counts_.events << game.number << frame.number << frame.lane
                       << frame.ball << frame.footPosition << frame.target << frame.first << frame.second
                       << frame.fill << frame.comment << frame.lineScore << recordIdOf(event, frame.recordId))
        .store();
}

void LogbookFile::finish() {
    transaction_.commit();
    fs::rename(unfinished_.file, file_);
}

}  // namespace tallybrook::sample
