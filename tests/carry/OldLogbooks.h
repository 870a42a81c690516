#pragma once

#include "JetWriter.h"
#include "carry/CarryOver.h"
#include "runtime/Clock.h"
#include "store/sql/Schema.h"
#include "support/SameText.h"
#include "support/TemporaryFolder.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include <SQLiteCpp/SQLiteCpp.h>

namespace tallybrook::test {

/// A column of an old logbook as it usually is: comments are long texts.
inline JetField usualField(const Column& column) {
    using carry::JetType;
    switch (column.type) {
        case FieldType::Number16:
            return {column.name, JetType::Integer16};
        case FieldType::Number32:
            return {column.name, JetType::Integer32};
        case FieldType::Double:
            return {column.name, JetType::Double};
        case FieldType::Date:
            return {column.name, JetType::Date};
        case FieldType::Text:
            break;
    }
    return {column.name, column.name == "fldComment" ? JetType::Memo : JetType::Text, true};
}

/// The tables of an old logbook without rows.
inline std::vector<JetTableText> emptyOldTables() {
    std::vector<JetTableText> old;
    for (const Table& table : tables()) {
        JetTableText& text = old.emplace_back(JetTableText{.name = table.name, .fields = {}, .rows = {}});
        for (const Column& column : table.columns)
            text.fields.push_back(usualField(column));
    }
    return old;
}

/// A row with values in these fields and Nulls in all others.
inline JetRow rowWith(const JetTableText& table,
                      const std::vector<std::pair<std::string, carry::Cell>>& values,
                      RowPlace place = RowPlace::Usual) {
    JetRow row{.cells = std::vector<carry::Cell>(table.fields.size(), Null{}), .place = place};
    for (const auto& [name, value] : values) {
        for (std::size_t at = 0; at < table.fields.size(); ++at) {
            if (table.fields[at].name == name)
                row.cells[at] = value;
        }
    }
    return row;
}

inline void writeBytes(const std::filesystem::path& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary) << bytes;
}

/// The rows of a query as texts, a Null as nothing.
using StoredRows = std::vector<std::vector<std::optional<std::string>>>;
inline StoredRows storedRows(const std::filesystem::path& logbook, const std::string& sql) {
    const SQLite::Database database(logbook.string());
    SQLite::Statement statement(database, sql);
    StoredRows rows;
    while (statement.executeStep()) {
        auto& row = rows.emplace_back();
        for (int column = 0; column < statement.getColumnCount(); ++column) {
            const SQLite::Column value = statement.getColumn(column);
            row.push_back(value.isNull() ? std::nullopt : std::optional(value.getString()));
        }
    }
    return rows;
}

/// A folder with an old logbook, and a place for a new one.
class OldLogbookFolder {
public:
    [[nodiscard]] const std::filesystem::path& path() const { return folder_.path(); }
    [[nodiscard]] std::filesystem::path old() const { return path() / "old.mdb"; }
    [[nodiscard]] std::filesystem::path logbook() const { return path() / "Tallybrook_DB.mdb"; }
    [[nodiscard]] carry::CarryOverJob job() const { return {.oldLogbook = old(), .logbook = logbook()}; }
    /// How many files there are.
    [[nodiscard]] std::ptrdiff_t count() const {
        return std::distance(std::filesystem::directory_iterator(path()),
                             std::filesystem::directory_iterator());
    }

private:
    TemporaryFolder folder_;
};

}  // namespace tallybrook::test
