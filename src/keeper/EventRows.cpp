#include "keeper/EventRows.h"

#include <fmt/format.h>

namespace tallybrook::keeper {

namespace {

// All three tables begin with their own key; games and frames have that of their event behind it.
constexpr std::size_t kKeyColumn = 0;
constexpr std::size_t kEventColumn = 1;

const Table& eventTable() {
    return *findTable("tblEventInfo");
}
const Table& gameTable() {
    return *findTable("tblGameInfo");
}
const Table& frameTable() {
    return *findTable("tblFrameInfo");
}

/// The rows of a table that belong to an event, in the order of their keys.
RowReader rowsOfEvent(const SQLite::Database& database, const Table& table, std::int64_t event) {
    RowReader rows(
        database, columnsOf(table),
        fmt::format("FROM {0} WHERE fldSessionNum = ? ORDER BY {1}", table.name, table.key().name));
    rows.restart(event);
    return rows;
}

}  // namespace

EventAdder::Columns EventAdder::allColumns() {
    return {.events = columnsOf(eventTable()),
            .games = columnsOf(gameTable()),
            .frames = columnsOf(frameTable())};
}

EventAdder::EventAdder(const SQLite::Database& logbook, const Columns& columns)
    : events_(logbook, eventTable(), columns.events),
      games_(logbook, gameTable(), columns.games),
      frames_(logbook, frameTable(), columns.frames) {}

std::int64_t EventAdder::addEvent(StoredRow row) {
    row[kKeyColumn] = Null{};
    ++added_.events;
    return events_.insert(row);
}

void EventAdder::addEvent(StoredRow row, std::int64_t key) {
    row[kKeyColumn] = key;
    ++added_.events;
    events_.insert(row);
}

void EventAdder::addGame(StoredRow row, std::int64_t event) {
    row[kKeyColumn] = Null{};
    row[kEventColumn] = event;
    ++added_.games;
    games_.insert(row);
}

void EventAdder::addFrame(StoredRow row, std::int64_t event) {
    row[kKeyColumn] = Null{};
    row[kEventColumn] = event;
    ++added_.frames;
    frames_.insert(row);
}

void deleteEvent(const SQLite::Database& logbook, std::int64_t key) {
    for (const Table& table : tables()) {
        Statement rows(logbook, fmt::format("DELETE FROM {} WHERE fldSessionNum = ?", table.name));
        rows.bind(1, key);
        rows.exec();
    }
}

bool copyEvent(const SQLite::Database& from, std::int64_t key, EventAdder& to) {
    RowReader event = rowsOfEvent(from, eventTable(), key);
    if (!event.next())
        return false;
    const std::int64_t added = to.addEvent(event.row());
    for (RowReader game = rowsOfEvent(from, gameTable(), key); game.next();)
        to.addGame(game.row(), added);
    for (RowReader frame = rowsOfEvent(from, frameTable(), key); frame.next();)
        to.addFrame(frame.row(), added);
    return true;
}

}  // namespace tallybrook::keeper
