#pragma once

#include "keeper/StoredRow.h"
#include "runtime/DataHome.h"
#include "store/Store.h"

#include <filesystem>
#include <string>
#include <vector>

#include <SQLiteCpp/SQLiteCpp.h>
#include <fmt/format.h>

// Logbooks made past the program, with whatever other programs could have put in.
namespace tallybrook::test {

/// Runs statements on the logbook of a data folder, which is made where there is none.
inline void change(const std::filesystem::path& data, const std::vector<std::string>& statements) {
    const SettableClock clock{makeDate(2026, 11, 22)};
    { const Store made(logbookIn(data), clock); }
    SQLite::Database database(logbookIn(data).string(), SQLite::OPEN_READWRITE);
    SQLite::Transaction transaction(database);
    for (const std::string& statement : statements)
        database.exec(statement);
    transaction.commit();
}

/// Adds an event with so many games of ten frames each; its key is the next one.
inline void addEvent(const std::filesystem::path& data, const std::string& name, int games = 2) {
    std::vector<std::string> statements{
        fmt::format("INSERT INTO tblEventInfo (fldEventName, fldDateBowled, fldCenterName) VALUES ('{}', "
                    "'2026-11-03', 'Lanes')",
                    name)};
    const std::string event = "(SELECT max(fldSessionNum) FROM tblEventInfo)";
    for (int game = 1; game <= games; ++game) {
        statements.push_back(fmt::format(
            "INSERT INTO tblGameInfo (fldSessionNum, fldGameNum, fldGameScore) VALUES ({}, {}, 150)", event,
            game));
        for (int frame = 1; frame <= 10; ++frame)
            statements.push_back(
                fmt::format("INSERT INTO tblFrameInfo (fldSessionNum, fldGameNum, fldFrameNum, "
                            "fldFirstBallRes) VALUES ({}, {}, {}, '7-10')",
                            event, game, frame));
    }
    change(data, statements);
}

inline void deleteEvent(const std::filesystem::path& data, int key) {
    std::vector<std::string> statements;
    for (const Table& table : tables())
        statements.push_back(fmt::format("DELETE FROM {} WHERE fldSessionNum = {}", table.name, key));
    change(data, statements);
}

/// All rows of the three tables as they are stored, with their types, and the highest keys given.
inline std::vector<std::string> rowsOf(const std::filesystem::path& logbook) {
    const SQLite::Database database(logbook.string());
    std::vector<std::string> rows;
    for (const Table& table : tables()) {
        std::string row;
        for (const Column& column : table.columns)
            row += fmt::format("{}typeof({}) || quote({})", row.empty() ? "" : " || ' ' || ", column.name,
                               column.name);
        SQLite::Statement all(database, fmt::format("SELECT {} FROM {} ORDER BY 1", row, table.name));
        while (all.executeStep())
            rows.push_back(table.name + " " + all.getColumn(0).getString());
    }
    SQLite::Statement keys(database, "SELECT name || seq FROM sqlite_sequence WHERE seq > 0 ORDER BY 1");
    while (keys.executeStep())
        rows.push_back(keys.getColumn(0).getString());
    return rows;
}

}  // namespace tallybrook::test
