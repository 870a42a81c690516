#include "carry/NewLogbook.h"

#include "store/file/UnlockedFile.h"

#include <algorithm>
#include <string>
#include <utility>

#include <fmt/format.h>
#include <sqlite3.h>

namespace tallybrook::carry {

namespace {

std::string insertInto(const Table& table, const std::vector<const Column*>& columns) {
    std::string names;
    std::string values;
    for (const Column* const column : columns) {
        names += (names.empty() ? "" : ", ") + column->name;
        values += values.empty() ? "?" : ", ?";
    }
    return fmt::format("INSERT OR IGNORE INTO {} ({}) VALUES ({})", table.name, names, values);
}

bool isSound(const SQLite::Database& database) {
    SQLite::Statement check(database, "PRAGMA integrity_check(1)");
    return check.executeStep() && check.getColumn(0).getString() == "ok";
}

}  // namespace

NewLogbook::NewLogbook(const std::filesystem::path& file)
    : file_(file), database_(file.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX) {
    database_.exec("PRAGMA journal_mode = OFF");
    database_.exec("PRAGMA synchronous = OFF");  // it is brought to the disk as a whole
    transaction_ = std::make_unique<SQLite::Transaction>(database_);
    for (const std::string& statement : schemaStatements())
        database_.exec(statement);
}

void NewLogbook::begin(const Table& table, std::vector<const Column*> columns) {
    table_ = &table;
    columns_ = std::move(columns);
    insert_ = std::make_unique<Statement>(database_, insertInto(table, columns_));
}

bool NewLogbook::add(const std::vector<Value>& values) {
    Statement::Use insert(*insert_);
    for (std::size_t at = 0; at < values.size(); ++at)
        insert->bind(static_cast<int>(at) + 1, values[at]);
    if (insert->exec() == 0)
        return false;
    figures_.add(table_->name, [&](std::string_view name) {
        const auto found =
            std::ranges::find(columns_, name, [](const Column* column) { return column->name; });
        return found == columns_.end() ? Value{Null{}}
                                       : values[static_cast<std::size_t>(found - columns_.begin())];
    });
    return true;
}

bool NewLogbook::finish() {
    insert_.reset();
    transaction_->commit();
    transaction_.reset();
    const SQLite::Database made = openAsItStands(file_);
    return isSound(made) && figuresOf(made) == figures_;
}

}  // namespace tallybrook::carry
