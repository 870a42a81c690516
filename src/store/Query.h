#pragma once

#include "runtime/Value.h"
#include "store/Connection.h"
#include "store/Sql.h"

#include <cstdint>
#include <string>
#include <vector>

struct sqlite3_value;

namespace tallybrook {

/// A row as a statement gives it: its key, and the values of the statement's fields.
struct StoredRow {
    std::int64_t key = 0;
    std::vector<Value> values;
};

/// What a stored value means in a column of that type. A value of another kind, put in by another program, is
/// taken as it is.
Value valueOfColumn(sqlite3_value* stored, FieldType type);

/// The value in a column of a statement's row, counted from 0.
Value columnValue(const SQLite::Statement& statement, int index, FieldType type);

/// Binds a value to a parameter, counted from 1, in the form in which it is stored.
void bindValue(SQLite::Statement& statement, int index, const Value& value);

/// Reads these fields of one row; false if there is no row of that key.
bool readRow(Store::Connection& connection, const Table& table, const std::vector<const Column*>& fields,
             StoredRow& row);

}  // namespace tallybrook
