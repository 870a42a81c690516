#pragma once

#include "sample/Sample.h"
#include "store/sql/Schema.h"
#include "support/SameText.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <iterator>
#include <string>
#include <vector>

#include <SQLiteCpp/SQLiteCpp.h>

namespace tallybrook::test {

using Row = std::vector<std::string>;

/// The rows of a query in a logbook as texts, a Null as "null", as any SQLite program sees them.
inline std::vector<Row> query(const std::filesystem::path& logbook, const std::string& sql) {
    const SQLite::Database database(logbook.string());
    SQLite::Statement statement(database, sql);
    std::vector<Row> rows;
    while (statement.executeStep()) {
        Row& row = rows.emplace_back();
        for (int column = 0; column < statement.getColumnCount(); ++column) {
            const SQLite::Column value = statement.getColumn(column);
            row.push_back(value.isNull() ? "null" : value.getString());
        }
    }
    return rows;
}

/// All rows of all tables of a logbook, without the handheld's record IDs.
inline std::vector<Row> contentOf(const std::filesystem::path& logbook) {
    std::vector<Row> content;
    for (const Table& table : tables()) {
        std::string fields;
        for (const Column& column : table.columns) {
            if (column.name != "fldHHRecordID")
                fields += (fields.empty() ? "" : ", ") + column.name;
        }
        std::vector<Row> rows =
            query(logbook, "SELECT " + fields + " FROM " + table.name + " ORDER BY " + table.key().name);
        std::ranges::move(rows, std::back_inserter(content));
    }
    return content;
}

/// A number that stands for a text (FNV-1a).
inline std::uint64_t digest(const std::string& text) {
    std::uint64_t hash = 14695981039346656037U;
    for (const char byte : text)
        hash = (hash ^ static_cast<unsigned char>(byte)) * 1099511628211U;
    return hash;
}

/// A number that stands for rows.
inline std::uint64_t digest(const std::vector<Row>& rows) {
    std::string text;
    for (const Row& row : rows) {
        for (const std::string& value : row)
            text += value + "|";
    }
    return digest(text);
}

/// A logbook made up in a folder of its own.
class Made {
public:
    explicit Made(int events, std::uint64_t seed = 1, bool cdb = false) {
        sample::makeSample({.events = events, .seed = seed, .data = folder(), .cdb = cdb});
    }

    [[nodiscard]] std::filesystem::path folder() const { return folder_.path() / "data"; }
    [[nodiscard]] std::filesystem::path logbook() const { return folder() / "Tallybrook_DB.mdb"; }
    [[nodiscard]] std::string exportFile(const std::string& table) const {
        return bytesOf(folder() / (table + ".cdb"));
    }

    [[nodiscard]] std::vector<Row> query(const std::string& sql) const { return test::query(logbook(), sql); }
    /// The one number of a query.
    [[nodiscard]] int number(const std::string& sql) const { return std::stoi(query(sql).at(0).at(0)); }
    [[nodiscard]] std::vector<Row> everything() const {
        std::vector<Row> rows = contentOf(logbook());
        for (const Table& table : tables()) {
            const std::vector<Row> ids = query("SELECT fldHHRecordID FROM " + table.name + " ORDER BY 1");
            rows.insert(rows.end(), ids.begin(), ids.end());
        }
        return rows;
    }

private:
    TemporaryFolder folder_;
};

}  // namespace tallybrook::test
