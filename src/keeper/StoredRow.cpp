#include "keeper/StoredRow.h"

#include "runtime/TextCompare.h"
#include "runtime/TextForms.h"
#include "store/file/StoredValue.h"

#include <optional>

#include <fmt/format.h>
#include <sqlite3.h>

namespace tallybrook::keeper {

namespace {

template <typename... Takers>
struct Overloaded : Takers... {
    using Takers::operator()...;
};
template <typename... Takers>
Overloaded(Takers...) -> Overloaded<Takers...>;

/// Binds a value, which must live until the statement has run.
void bind(SQLite::Statement& statement, int index, const StoredValue& value) {
    std::visit(Overloaded{[&](Null) { statement.bind(index); },
                          [&](const Blob& blob) {
                              statement.bindNoCopy(index, blob.bytes.data(),
                                                   static_cast<int>(blob.bytes.size()));
                          },
                          [&](const std::string& text) { statement.bindNoCopy(index, text); },
                          [&](const auto& number) { statement.bind(index, number); }},
               value);
}

std::string insertStatement(const Table& table, const std::vector<const Column*>& columns) {
    std::string values = "?";
    for (std::size_t column = 1; column < columns.size(); ++column)
        values += ", ?";
    return fmt::format("INSERT INTO {} ({}) VALUES ({})", table.name, columnList(columns), values);
}

std::string legible(std::string_view bytes) {
    if (const std::optional<DateTime> date = storedDateIn(bytes))
        return shortDate(*date);
    return asWritten(bytes);
}

}  // namespace

StoredValue storedValue(sqlite3_value* stored) {
    switch (sqlite3_value_type(stored)) {
        case SQLITE_NULL:
            return Null{};
        case SQLITE_INTEGER:
            return std::int64_t{sqlite3_value_int64(stored)};
        case SQLITE_FLOAT:
            return sqlite3_value_double(stored);
        case SQLITE_TEXT:
            return std::string(bytesOf(stored));
        default:
            return Blob{std::string(bytesOf(stored))};
    }
}

std::string shownText(const StoredValue& value) {
    return std::visit(Overloaded{[](Null) { return std::string(); },
                                 [](std::int64_t number) { return std::to_string(number); },
                                 [](double number) { return doubleText(number); },
                                 [](const std::string& text) { return legible(text); },
                                 [](const Blob& blob) { return legible(blob.bytes); }},
                      value);
}

std::string columnList(const std::vector<const Column*>& columns) {
    std::string list;
    for (const Column* const column : columns)
        list += (list.empty() ? "" : ", ") + column->name;
    return list;
}

std::vector<const Column*> columnsOf(const Table& table) {
    std::vector<const Column*> columns;
    for (const Column& column : table.columns)
        columns.push_back(&column);
    return columns;
}

RowReader::RowReader(const SQLite::Database& database, const std::vector<const Column*>& columns,
                     const std::string& from)
    : statement_(database, fmt::format("SELECT {} {}", columnList(columns), from)), row_(columns.size()) {}

void RowReader::restart(std::int64_t parameter) {
    statement_.reset();
    statement_.bind(1, parameter);
}

bool RowReader::next() {
    if (!statement_.executeStep())
        return false;
    for (std::size_t column = 0; column < row_.size(); ++column)
        row_[column] = storedValue(statement_.column(static_cast<int>(column)));
    return true;
}

RowInserter::RowInserter(const SQLite::Database& database, const Table& table,
                         const std::vector<const Column*>& columns)
    : database_(database), statement_(database, insertStatement(table, columns)) {}

std::int64_t RowInserter::insert(const StoredRow& row) {
    for (std::size_t column = 0; column < row.size(); ++column)
        bind(statement_, static_cast<int>(column) + 1, row[column]);
    statement_.exec();
    statement_.reset();
    return database_.getLastInsertRowid();
}

}  // namespace tallybrook::keeper
