#pragma once

#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

#include <sqlite3.h>

// SQLite's own interface, with no more around it than closes what was opened. The limits are measured with
// it.
namespace tallybrook::bench {

/// A connection of its own to a logbook that nobody else has open.
class PlainDatabase {
public:
    explicit PlainDatabase(const std::filesystem::path& file, int flags = 0) {
        flags |= SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX;
        require(sqlite3_open_v2(file.c_str(), &handle_, flags, nullptr));
        run("PRAGMA locking_mode = EXCLUSIVE");
        run("PRAGMA synchronous = FULL");
        run("PRAGMA cache_size = -8192");
    }
    ~PlainDatabase() { sqlite3_close_v2(handle_); }
    PlainDatabase(const PlainDatabase&) = delete;
    PlainDatabase& operator=(const PlainDatabase&) = delete;

    void run(const char* sql) { require(sqlite3_exec(handle_, sql, nullptr, nullptr, nullptr)); }
    [[nodiscard]] sqlite3* handle() const { return handle_; }

    /// Makes a copy that is on the disk at the end.
    void copyTo(const std::filesystem::path& file) const {
        const PlainDatabase copy(file, SQLITE_OPEN_CREATE);
        sqlite3_backup* const backup = sqlite3_backup_init(copy.handle_, "main", handle_, "main");
        sqlite3_backup_step(backup, -1);
        copy.require(sqlite3_backup_finish(backup));
    }

private:
    void require(int result) const {
        if (result != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(handle_));
    }

    sqlite3* handle_ = nullptr;
};

class PlainStatement {
public:
    PlainStatement(const PlainDatabase& database, const char* sql) {
        if (sqlite3_prepare_v2(database.handle(), sql, -1, &statement_, nullptr) != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(database.handle()));
    }
    ~PlainStatement() { sqlite3_finalize(statement_); }
    PlainStatement(const PlainStatement&) = delete;
    PlainStatement& operator=(const PlainStatement&) = delete;

    /// Whether there is a next row.
    bool step() {
        const int result = sqlite3_step(statement_);
        if (result != SQLITE_ROW && result != SQLITE_DONE)
            throw std::runtime_error(sqlite3_errmsg(sqlite3_db_handle(statement_)));
        return result == SQLITE_ROW;
    }
    void reset() { sqlite3_reset(statement_); }
    /// Runs a statement that gives no rows.
    void run() {
        step();
        reset();
    }

    // Parameters count from 1. A text must live until the statement has run.
    void bind(int index, std::int64_t number) { sqlite3_bind_int64(statement_, index, number); }
    void bind(int index, double number) { sqlite3_bind_double(statement_, index, number); }
    void bind(int index, std::string_view text) {
        sqlite3_bind_text(statement_, index, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
    }

    // Columns count from 0. A text lives until the next step.
    [[nodiscard]] int columnCount() const { return sqlite3_column_count(statement_); }
    [[nodiscard]] bool isNull(int column) const {
        return sqlite3_column_type(statement_, column) == SQLITE_NULL;
    }
    [[nodiscard]] bool isText(int column) const {
        return sqlite3_column_type(statement_, column) == SQLITE_TEXT;
    }
    [[nodiscard]] int number(int column) const { return sqlite3_column_int(statement_, column); }
    [[nodiscard]] double real(int column) const { return sqlite3_column_double(statement_, column); }
    [[nodiscard]] std::string_view text(int column) const {
        const auto* const bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
        return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
    }

private:
    sqlite3_stmt* statement_ = nullptr;
};

}  // namespace tallybrook::bench
