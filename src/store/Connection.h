#pragma once

#include "runtime/Clock.h"
#include "runtime/RunTimeError.h"
#include "store/Plan.h"
#include "store/RecentStatements.h"
#include "store/Schema.h"
#include "store/Store.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include <SQLiteCpp/SQLiteCpp.h>

namespace tallybrook {

/// A set of rows that was opened but perhaps not yet read from the tables, or not in full.
class UnreadRows {
public:
    virtual ~UnreadRows() = default;
    /// The row of that key is about to be changed or deleted: reads it now if it may be among the set, so
    /// that the change does not show in it.
    virtual void readBeforeChange(const Table& table, std::int64_t key) = 0;
};

/// The one connection to the logbook's file: statements kept ready, and the rows of open recordsets that are
/// still to be read.
class Store::Connection {
public:
    Connection(const std::filesystem::path& file, const Clock& clock);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    [[nodiscard]] SQLite::Database& database() { return database_; }
    [[nodiscard]] int currentYear() const { return clock_.year(); }

    /// A statement, prepared once and reused, to be run at once with all its parameters bound anew.
    SQLite::Statement& prepared(const std::string& sql);
    /// As Store::beforeFirstWrite().
    void beforeFirstWrite(std::function<void()> wait) { beforeFirstWrite_ = std::move(wait); }

    /// As Store::whileAtWork().
    void whileAtWork(std::function<void()> look) { whileAtWork_ = std::move(look); }
    /// Work goes on, and nothing of the store is in the middle of something.
    void noteWork() const {
        if (whileAtWork_)
            whileAtWork_();
    }

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
    /// To be called before a row is changed or deleted.
    void readBeforeChange(const Table& table, std::int64_t key);

private:
    SQLite::Statement& ready(const std::string& sql);
    static void noteRollback(void* connection);

    const Clock& clock_;
    SQLite::Database database_;
    std::map<std::string, std::unique_ptr<SQLite::Statement>> prepared_;
    std::unordered_map<std::string, std::shared_ptr<Plan>> plans_;  // by the shape of their statements
    RecentStatements recent_;
    std::unordered_map<const Table*, std::int64_t> highestKeys_;
    std::uint64_t rollbacks_ = 0;
    std::vector<UnreadRows*> unread_;
    std::function<void()> beforeFirstWrite_;
    std::function<void()> whileAtWork_;
};

/// Ends the use of a prepared statement, however it ends. What is bound stays, until the next use binds anew.
class StatementUse {
public:
    explicit StatementUse(SQLite::Statement& statement) : statement_(statement) {}
    ~StatementUse() { statement_.tryReset(); }
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
