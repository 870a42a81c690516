#pragma once

#include "keeper/StoredRow.h"
#include "keeper/Summary.h"

#include <cstdint>

namespace tallybrook::keeper {

/// Adds events with their games and frames to a logbook, under new keys. Whoever uses it keeps a transaction
/// open. Errors: SQLite::Exception.
class EventAdder {
public:
    /// The rows that are added have values for these columns of the three tables.
    struct Columns {
        std::vector<const Column*> events, games, frames;
    };
    explicit EventAdder(const SQLite::Database& logbook, const Columns& columns = allColumns());

    /// Adds an event and returns its new key.
    std::int64_t addEvent(StoredRow row);
    /// Adds an event under a key that is free.
    void addEvent(StoredRow row, std::int64_t key);
    /// Add a game or a frame to the event of that key.
    void addGame(StoredRow row, std::int64_t event);
    void addFrame(StoredRow row, std::int64_t event);

    /// What was added.
    [[nodiscard]] const Counts& added() const { return added_; }

    [[nodiscard]] static Columns allColumns();

private:
    RowInserter events_;
    RowInserter games_;
    RowInserter frames_;
    Counts added_;
};

/// Deletes an event with its games and frames. Errors: SQLite::Exception.
void deleteEvent(const SQLite::Database& logbook, std::int64_t key);

/// Copies an event with its games and frames from a logbook; false where it has no event of that key.
bool copyEvent(const SQLite::Database& from, std::int64_t key, EventAdder& to);

}  // namespace tallybrook::keeper
