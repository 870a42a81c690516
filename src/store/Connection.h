#pragma once

#include "runtime/Clock.h"
#include "runtime/RunTimeError.h"
#include "store/Plan.h"
#include "store/Schema.h"
#include "store/Store.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include <SQLiteCpp/SQLiteCpp.h>

namespace tallybrook {

/// A set of rows that was opened but not yet read from the tables, or not in full.
class UnreadRows {
public:
    virtual ~UnreadRows() = default;
    /// Reads the rows in full, so that later changes do not show in them.
    virtual void read() = 0;
    /// Whether the row of that key may be among them.
    [[nodiscard]] virtual bool mayHold(const Table& table, std::int64_t key) const = 0;
};

/// A statement of the subset, understood: how it is run, and its values.
struct UnderstoodStatement {
    std::shared_ptr<Plan> plan;
    std::vector<Value> values;
};

/// The one connection to the logbook's file: statements kept ready, and the rows of open recordsets that are
/// still to be read.
class Store::Connection {
public:
    Connection(const std::filesystem::path& file, const Clock& clock);

    [[nodiscard]] SQLite::Database& database() { return database_; }
    [[nodiscard]] int currentYear() const { return clock_.year(); }

    /// A statement, prepared once and reused, with nothing bound.
    SQLite::Statement& prepared(const std::string& sql);

    /// Understands a statement; errors as parseSelect().
    UnderstoodStatement understand(const std::string& sql);

    /// The highest key that a table has had; 0 if it never had rows.
    [[nodiscard]] std::int64_t highestKey(const Table& table);
    /// To be called after a row was added.
    void noteKey(const Table& table, std::int64_t key) { highestKeys_[&table] = key; }
    /// Another number after each change of the tables.
    [[nodiscard]] std::uint64_t version() const;

    void enlist(UnreadRows& rows) { unread_.push_back(&rows); }
    void strike(UnreadRows& rows) { std::erase(unread_, &rows); }
    /// To be called before a row is changed or deleted: reads the sets that may hold it.
    void readBeforeChange(const Table& table, std::int64_t key);

private:
    static void noteRollback(void* connection);

    const Clock& clock_;
    SQLite::Database database_;
    std::map<std::string, std::unique_ptr<SQLite::Statement>> prepared_;
    std::unordered_map<std::string, std::shared_ptr<Plan>> plans_;  // by the shape of their statements
    std::string lastSql_;  // the statement understood last, and in which year
    int lastYear_ = 0;
    UnderstoodStatement lastUnderstood_;
    std::unordered_map<const Table*, std::int64_t> highestKeys_;
    std::uint64_t rollbacks_ = 0;
    std::vector<UnreadRows*> unread_;
};

/// Ends the use of a prepared statement, however it ends.
class StatementUse {
public:
    explicit StatementUse(SQLite::Statement& statement) : statement_(statement) {}
    ~StatementUse() {
        statement_.tryReset();
        statement_.clearBindings();
    }
    StatementUse(const StatementUse&) = delete;
    StatementUse& operator=(const StatementUse&) = delete;
    SQLite::Statement* operator->() { return &statement_; }
    SQLite::Statement& operator*() { return statement_; }

private:
    SQLite::Statement& statement_;
};

/// Runs what works on the file; a failure that SQLite reports becomes error -2147467259 with its text.
template <typename Work>
auto onFile(Work&& work) {
    try {
        return work();
    } catch (const SQLite::Exception& failure) {
        throw RunTimeError(error::kEngineFailure, failure.what());
    }
}

}  // namespace tallybrook
