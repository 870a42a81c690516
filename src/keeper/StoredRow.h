#pragma once

#include "runtime/Value.h"
#include "store/file/Statement.h"
#include "store/sql/Schema.h"

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include <SQLiteCpp/SQLiteCpp.h>

namespace tallybrook::keeper {

/// Bytes that are no text.
struct Blob {
    std::string bytes;

    friend bool operator==(const Blob&, const Blob&) = default;
};

/// A value just as it is stored, of whatever kind another program has put there. A text may hold bytes that
/// are no UTF-8.
using StoredValue = std::variant<Null, std::int64_t, double, std::string, Blob>;

/// The values of a row in the order of some columns.
using StoredRow = std::vector<StoredValue>;

StoredValue storedValue(sqlite3_value* stored);

/// A value as a text for people: a date as it is written elsewhere, nothing for a Null, and no character that
/// a terminal would obey.
std::string shownText(const StoredValue& value);

/// The columns of a table, for a statement: "fldSessionNum, fldEventName".
std::string columnList(const std::vector<const Column*>& columns);
/// All columns of a table.
std::vector<const Column*> columnsOf(const Table& table);

/// The rows of a SELECT of these columns, one after the other; `from` is the rest of it, from FROM on.
/// Errors: SQLite::Exception.
class RowReader {
public:
    RowReader(const SQLite::Database& database, const std::vector<const Column*>& columns,
              const std::string& from);

    /// Gives a whole number to the only parameter, and begins anew.
    void restart(std::int64_t parameter);
    /// Reads the next row into row(); false behind the last one.
    bool next();
    [[nodiscard]] const StoredRow& row() const { return row_; }

private:
    Statement statement_;
    StoredRow row_;
};

/// Puts rows into a table. Errors: SQLite::Exception.
class RowInserter {
public:
    /// The rows have values for these columns, the first of which is the key.
    RowInserter(const SQLite::Database& database, const Table& table,
                const std::vector<const Column*>& columns);

    /// Stores a row and returns its key; where that is Null the table gives it a new one.
    std::int64_t insert(const StoredRow& row);

private:
    const SQLite::Database& database_;
    SQLite::Statement statement_;
};

}  // namespace tallybrook::keeper
