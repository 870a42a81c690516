#pragma once

#include "runtime/Value.h"
#include "store/Connection.h"
#include "store/FieldValue.h"
#include "store/Sql.h"

#include <cstdint>
#include <string>
#include <variant>
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
template <typename Statement>
void bindValue(Statement& statement, int index, const Value& value) {
    if (const auto* const number = std::get_if<std::int64_t>(&value))
        statement.bind(index, *number);
    else if (const auto* const real = std::get_if<double>(&value))
        statement.bind(index, *real);
    else if (const auto* const text = std::get_if<std::string>(&value))
        statement.bind(index, *text);
    else if (const auto* const date = std::get_if<DateTime>(&value))
        statement.bind(index, storedDate(*date));
    else
        statement.bind(index);
}

/// Reads these fields of one row; false if there is no row of that key.
bool readRow(Store::Connection& connection, const Table& table, const std::vector<const Column*>& fields,
             StoredRow& row);

}  // namespace tallybrook
