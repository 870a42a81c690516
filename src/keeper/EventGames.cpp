#include "keeper/EventGames.h"

#include "keeper/StoredRow.h"

#include <algorithm>

#include <fmt/format.h>

namespace tallybrook::keeper {

namespace {

std::vector<const Column*> columnsCalled(const Table& table, const std::vector<std::string>& names) {
    std::vector<const Column*> columns;
    columns.reserve(names.size());
    for (const std::string& name : names)
        columns.push_back(table.find(name));
    return columns;
}

/// Rows of one event in an order, with some of their columns.
RowReader rowsOf(const SQLite::Database& logbook, const char* table, const std::vector<std::string>& names,
                 std::int64_t event, const char* order) {
    RowReader rows(logbook, columnsCalled(*findTable(table), names),
                   fmt::format("FROM {} WHERE fldSessionNum = ? ORDER BY {}", table, order));
    rows.restart(event);
    return rows;
}

/// As in "4: 7 /" for balls, or "4: 7/" for the cell of a line score.
std::string frameIn(const StoredRow& row) {
    std::string text = shownText(row[1]) + ":";
    for (std::size_t ball = 2; ball < row.size(); ++ball) {
        if (const std::string result = shownText(row[ball]); !result.empty())
            text += " " + result;
    }
    return text;
}

void addFrames(const SQLite::Database& logbook, std::int64_t event, std::vector<GameLook>& games) {
    RowReader frames = rowsOf(logbook, "tblFrameInfo",
                              {"fldGameNum", "fldFrameNum", "fldFirstBallRes", "fldSecondBallRes",
                               "fldFillBallRes", "fldLineScore"},
                              event, "fldGameNum, fldFrameNum, fldFrameKey");
    while (frames.next()) {
        const std::string number = shownText(frames.row().front());
        if (const auto game = std::ranges::find(games, number, &GameLook::number); game != games.end())
            game->frames.push_back(frameIn(frames.row()));
    }
}

}  // namespace

std::optional<std::vector<GameLook>> gamesOf(const SQLite::Database& logbook, std::int64_t event) {
    if (!rowsOf(logbook, "tblEventInfo", {"fldSessionNum"}, event, "fldSessionNum").next())
        return std::nullopt;
    std::vector<GameLook> games;
    RowReader rows = rowsOf(logbook, "tblGameInfo", {"fldGameNum", "fldGameScore", "fldLanePair"}, event,
                            "fldGameNum, fldGameKey");
    while (rows.next())
        games.push_back({.number = shownText(rows.row()[0]),
                         .score = shownText(rows.row()[1]),
                         .lanes = shownText(rows.row()[2]),
                         .frames = {}});
    addFrames(logbook, event, games);
    return games;
}

}  // namespace tallybrook::keeper
