#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tallybrook {

enum class FieldType { Number16, Number32, Double, Text, Date };

struct Column {
    std::string name;
    FieldType type;
    bool isLookedUp = false;  // a text that statements find rows by
};

/// One of the logbook's tables. Its first column is the key, which the store assigns.
struct Table {
    std::string name;
    std::vector<Column> columns;

    [[nodiscard]] const Column& key() const { return columns.front(); }
    /// The column of that name, without case; nullptr if there is none.
    [[nodiscard]] const Column* find(std::string_view column) const;
};

/// The tables of the logbook.
const std::vector<Table>& tables();

/// The table of that name, without case; nullptr if there is none.
const Table* findTable(std::string_view name);

/// The condition, in SQL, that a column's value is one that SQLite's own NOCASE cannot compare: it holds more
/// than plain ASCII, or is no text. An index holds the rows for which it is true, so a query that looks for
/// them must word it the same.
std::string isBeyondNocase(const Column& column);

/// The statements that make the tables and indexes of an empty logbook, of the newest schema, whose number is
/// kept in the file's user_version.
std::vector<std::string> schemaStatements();

}  // namespace tallybrook
