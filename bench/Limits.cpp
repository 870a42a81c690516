#include "Limits.h"

#include "runtime/TextEncoding.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace tallybrook::bench {

namespace fs = std::filesystem;

namespace {

/// A file in memory, as UTF-8.
std::string textOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
        throw std::runtime_error("cannot read " + file.string());
    const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
    return decoded(bytes, encodingOf(bytes));
}

int numberIn(std::string_view text) {
    int number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

/// Calls `record` with the fields of each record of an export file: the record ID, then those behind the
/// status.
template <typename Record>
void forEachRecord(const fs::path& file, Record record) {
    const std::string text = textOf(file);
    std::vector<std::string_view> fields;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = text.find("\r\n", at);
        std::string_view line = std::string_view(text).substr(at, end - at);
        at = end + 2;
        if (line.starts_with('#'))
            continue;
        fields.assign(1, line.substr(0, 10));
        for (line.remove_prefix(18); !line.empty();) {
            const bool isQuoted = line.starts_with('"');
            const std::size_t behind =
                std::min(line.find(isQuoted ? '"' : ',', isQuoted ? 1 : 0), line.size());
            fields.push_back(isQuoted ? line.substr(1, behind - 1) : line.substr(0, behind));
            line.remove_prefix(std::min(line.size(), behind + (isQuoted ? 2 : 1)));
        }
        record(fields);
    }
}

/// "5/31/2026" as it is stored.
std::string storedDate(std::string_view date) {
    const std::size_t first = date.find('/');
    const std::size_t second = date.find('/', first + 1);
    const auto twoDigits = [](std::string_view number) {
        return number.size() == 1 ? "0" + std::string(number) : std::string(number);
    };
    return std::string(date.substr(second + 1)) + "-" + twoDigits(date.substr(0, first)) + "-" +
           twoDigits(date.substr(first + 1, second - first - 1));
}

void importEvents(PlainDatabase& logbook, const fs::path& file, int shift) {
    PlainStatement insert(
        logbook,
        "INSERT INTO tblEventInfo (fldSessionNum, fldEventName, fldDateBowled, fldEventType, "
        "fldCenterName, fldCenterLoc, fldComment, fldNumGames, fldSeriesAvg, fldSeriesTot, "
        "fldHHRecordID) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    forEachRecord(file, [&](const std::vector<std::string_view>& fields) {
        const std::string date = storedDate(fields[3]);
        insert.bind(1, std::int64_t{numberIn(fields[1])} + shift);
        insert.bind(2, fields[2]);
        insert.bind(3, std::string_view(date));
        for (int text = 4; text <= 7; ++text)
            insert.bind(text, fields[static_cast<std::size_t>(text)]);
        insert.bind(8, std::int64_t{numberIn(fields[8])});
        insert.bind(9, std::stod(std::string(fields[9])));
        insert.bind(10, std::int64_t{numberIn(fields[10])});
        insert.bind(11, fields[0]);
        insert.run();
    });
}

void importGames(PlainDatabase& logbook, const fs::path& file, int shift) {
    PlainStatement insert(logbook,
                          "INSERT INTO tblGameInfo (fldSessionNum, fldGameNum, fldGameScore, fldLeftLane, "
                          "fldRightLane, fldStartLane, fldLanePair, fldScoreType, fldLaneCond, fldComment, "
                          "fldHHRecordID, fldBowlHand) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, 'N')");
    forEachRecord(file, [&](const std::vector<std::string_view>& fields) {
        insert.bind(1, std::int64_t{numberIn(fields[2])} + shift);
        insert.bind(2, std::int64_t{numberIn(fields[3])});
        insert.bind(3, std::int64_t{numberIn(fields[4])});
        for (int lane = 4; lane <= 6; ++lane)
            insert.bind(lane, std::int64_t{numberIn(fields[static_cast<std::size_t>(lane) + 2])});
        for (int text = 7; text <= 10; ++text)
            insert.bind(text, fields[static_cast<std::size_t>(text) + 2]);
        insert.bind(11, fields[0]);
        insert.run();
    });
}

void importFrames(PlainDatabase& logbook, const fs::path& file, int shift) {
    PlainStatement insert(
        logbook,
        "INSERT INTO tblFrameInfo (fldSessionNum, fldFrameNum, fldGameNum, fldLaneBowled, fldBallUsed, "
        "fldFootPos, fldLaneTgt, fldFirstBallRes, fldSecondBallRes, fldFillBallRes, fldLineScore, "
        "fldComment, "
        "fldHHRecordID) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    forEachRecord(file, [&](const std::vector<std::string_view>& fields) {
        insert.bind(1, std::int64_t{numberIn(fields[2])} + shift);
        for (int number = 2; number <= 4; ++number)
            insert.bind(number, std::int64_t{numberIn(fields[static_cast<std::size_t>(number) + 2])});
        for (int text = 5; text <= 12; ++text)
            insert.bind(text, fields[static_cast<std::size_t>(text) + 2]);
        insert.bind(13, fields[0]);
        insert.run();
    });
}

/// Counts what belongs to the events from a key on.
void countRecorded(PlainDatabase& logbook, int firstSession) {
    PlainStatement games(
        logbook,
        "UPDATE tblGameInfo SET fldFrmsRecorded = (SELECT count(*) FROM tblFrameInfo AS frame "
        "WHERE frame.fldSessionNum = tblGameInfo.fldSessionNum AND frame.fldGameNum = "
        "tblGameInfo.fldGameNum) WHERE fldSessionNum >= ?");
    games.bind(1, std::int64_t{firstSession});
    games.run();
    PlainStatement events(
        logbook,
        "UPDATE tblEventInfo SET fldGmsRecorded = (SELECT count(*) FROM tblGameInfo AS game "
        "WHERE game.fldSessionNum = tblEventInfo.fldSessionNum) WHERE fldSessionNum >= ?");
    events.bind(1, std::int64_t{firstSession});
    events.run();
}

int theNumber(PlainDatabase& logbook, const char* sql) {
    PlainStatement query(logbook, sql);
    query.step();
    return query.number(0);
}

void writeRows(PlainStatement& rows, std::string& text) {
    while (rows.step()) {
        for (int column = 0; column < rows.columnCount(); ++column)
            text.append(rows.text(column)).append("\t");
        text.append("\r\n");
    }
}

/// Games with a wrong count of frames or score type: a walk over both in the order of the index.
int wrongGames(PlainDatabase& logbook) {
    PlainStatement games(logbook,
                         "SELECT fldSessionNum, fldGameNum, fldScoreType, fldFrmsRecorded FROM tblGameInfo "
                         "ORDER BY fldSessionNum, fldGameNum");
    PlainStatement groups(
        logbook,
        "SELECT fldSessionNum, fldGameNum, count(*), min(fldFrameNum), fldFirstBallRes FROM "
        "tblFrameInfo GROUP BY fldSessionNum, fldGameNum");
    int wrong = 0;
    bool hasGroup = groups.step();
    while (games.step()) {
        const bool hasFrames =
            hasGroup && groups.number(0) == games.number(0) && groups.number(1) == games.number(1);
        const int frames = hasFrames ? groups.number(2) : 0;
        const std::string_view type = !hasFrames ? "N" : groups.text(4).empty() ? "L" : "P";
        if (frames != games.number(3) || type != games.text(2))
            ++wrong;
        if (hasFrames)
            hasGroup = groups.step();
    }
    return wrong;
}

}  // namespace

void readAll(PlainDatabase& logbook, const char* sql) {
    PlainStatement rows(logbook, sql);
    double seen = 0;
    while (rows.step()) {
        for (int column = 0; column < rows.columnCount(); ++column)
            seen += rows.isText(column) ? static_cast<double>(rows.text(column).size()) : rows.real(column);
    }
    if (seen == 0)
        throw std::runtime_error("rows without content");
}

void writeEvent(PlainDatabase& logbook, int session, const fs::path& file) {
    std::string text;
    for (const char* sql :
         {"SELECT * FROM tblEventInfo WHERE fldSessionNum = ?",
          "SELECT * FROM tblGameInfo WHERE fldSessionNum = ? ORDER BY fldGameNum",
          "SELECT * FROM tblFrameInfo WHERE fldSessionNum = ? ORDER BY fldGameNum, fldFrameNum"}) {
        PlainStatement rows(logbook, sql);
        rows.bind(1, std::int64_t{session});
        writeRows(rows, text);
    }
    std::ofstream(file, std::ios::binary) << text;
}

int checkLogbook(PlainDatabase& logbook) {
    return theNumber(logbook,
                     "SELECT count(*) FROM tblFrameInfo WHERE NOT EXISTS (SELECT 1 FROM tblEventInfo WHERE "
                     "tblEventInfo.fldSessionNum = tblFrameInfo.fldSessionNum)") +
           theNumber(logbook,
                     "SELECT count(*) FROM tblGameInfo WHERE NOT EXISTS (SELECT 1 FROM tblEventInfo WHERE "
                     "tblEventInfo.fldSessionNum = tblGameInfo.fldSessionNum)") +
           theNumber(logbook,
                     "SELECT count(*) FROM tblEventInfo WHERE fldGmsRecorded <> (SELECT count(*) FROM "
                     "tblGameInfo WHERE tblGameInfo.fldSessionNum = tblEventInfo.fldSessionNum)") +
           wrongGames(logbook);
}

void importFiles(PlainDatabase& logbook, const fs::path& folder, int shift) {
    logbook.run("BEGIN");
    importEvents(logbook, folder / "tblEvent.cdb", shift);
    importGames(logbook, folder / "tblGame.cdb", shift);
    importFrames(logbook, folder / "tblFrame.cdb", shift);
    countRecorded(logbook, shift + 1);
    logbook.run("COMMIT");
}

int lastEvent(PlainDatabase& logbook) {
    return theNumber(logbook, "SELECT max(fldSessionNum) FROM tblEventInfo");
}

}  // namespace tallybrook::bench
