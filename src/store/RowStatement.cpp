#include "store/RowStatement.h"

#include "store/FieldValue.h"

#include <sqlite3.h>

namespace tallybrook {

// The connection is used by one thread at a time, so a column's value may be looked at as it stands.

namespace {

std::string_view textIn(sqlite3_value* stored) {
    const void* const bytes = sqlite3_value_blob(stored);
    return {static_cast<const char*>(bytes), static_cast<std::size_t>(sqlite3_value_bytes(stored))};
}

/// Adds what the stored value means in a column of that type.
void addStored(PackedRows& rows, sqlite3_value* stored, FieldType type) {
    switch (sqlite3_value_type(stored)) {
        case SQLITE_NULL:
            return rows.addNull();
        case SQLITE_INTEGER:
            return rows.addNumber(sqlite3_value_int64(stored));
        case SQLITE_FLOAT:
            return rows.addReal(sqlite3_value_double(stored));
        default:
            break;
    }
    if (type == FieldType::Date)
        rows.add(fromStoredDate(textIn(stored)));
    else
        rows.addText(textIn(stored));
}

}  // namespace

void RowStatement::Finalize::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

RowStatement::RowStatement(SQLite::Database& database, const std::string& sql)
    : database_(database.getHandle()) {
    sqlite3_stmt* statement = nullptr;
    const int result =
        sqlite3_prepare_v3(database_, sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    statement_.reset(statement);
    require(result);
}

void RowStatement::require(int result) const {
    if (result != SQLITE_OK)
        throw SQLite::Exception(database_, result);
}

void RowStatement::bind(int index, std::int64_t number) {
    require(sqlite3_bind_int64(statement_.get(), index, number));
}
void RowStatement::bind(int index, double number) {
    require(sqlite3_bind_double(statement_.get(), index, number));
}
void RowStatement::bind(int index, const std::string& text) {
    require(sqlite3_bind_text(statement_.get(), index, text.data(), static_cast<int>(text.size()),
                              SQLITE_TRANSIENT));
}
void RowStatement::bind(int index) {
    require(sqlite3_bind_null(statement_.get(), index));
}

bool RowStatement::executeStep() {
    const int result = sqlite3_step(statement_.get());
    if (result != SQLITE_DONE && result != SQLITE_ROW)
        throw SQLite::Exception(database_, result);
    return result == SQLITE_ROW;
}

void RowStatement::reset() {
    sqlite3_reset(statement_.get());
}

std::int64_t RowStatement::key() const {
    return sqlite3_column_int64(statement_.get(), 0);
}

std::optional<std::int64_t> RowStatement::wholeNumber(int column) const {
    sqlite3_value* const stored = sqlite3_column_value(statement_.get(), column);
    switch (sqlite3_value_type(stored)) {
        case SQLITE_INTEGER:
            return sqlite3_value_int64(stored);
        case SQLITE_FLOAT:
            return wholeNumberIn(sqlite3_value_double(stored));
        default:
            return std::nullopt;
    }
}

void RowStatement::addRowTo(PackedRows& rows, int firstField,
                            const std::vector<const Column*>& fields) const {
    rows.addRow(key());
    int column = firstField;
    for (const std::size_t field : rows.projection().fields)
        addStored(rows, sqlite3_column_value(statement_.get(), column++), fields[field]->type);
}

}  // namespace tallybrook
