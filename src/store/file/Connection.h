#pragma once

#include "runtime/RunTimeError.h"
#include "store/file/Statement.h"
#include "store/file/Transaction.h"
#include "store/file/WriteWatch.h"
#include "store/sql/Schema.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>

#include <SQLiteCpp/SQLiteCpp.h>

namespace tallybrook {

/// The one connection to the logbook's file, which holds its lock: statements kept ready, and the highest key
/// of each table.
class Connection {
public:
    /// Opens a logbook, which must be one, and rolls a save back that was cut off. Errors: SQLite::Exception.
    explicit Connection(const std::filesystem::path& file);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    [[nodiscard]] SQLite::Database& database() { return database_; }

    /// A statement, prepared once and reused, to be run at once with all its parameters bound anew. It stays
    /// as long as it is in use; others may be dropped for it.
    Statement& prepared(const std::string& sql);
    /// Shows what stands in the file before it is written over; nothing if it is empty.
    void beforeOverwriting(WriteWatch::Show show);
    /// Lets `act` run once, before the next prepared statement that deletes rows while no transaction is
    /// open; nothing if it is empty.
    void beforeFirstDeletion(std::function<void()> act) { beforeFirstDeletion_ = std::move(act); }
    /// What is kept together of what is stored.
    [[nodiscard]] Transaction& transaction() { return transaction_; }
    [[nodiscard]] bool isWithinTransaction() const { return transaction_.isOpen(); }

    /// The highest key that a table has had; 0 if it never had rows.
    [[nodiscard]] std::int64_t highestKey(const Table& table);
    /// To be called after a row was added.
    void noteKey(const Table& table, std::int64_t key) { highestKeys_[&table] = key; }
    /// To be called where it is not known whether a row was added.
    void forgetKey(const Table& table) { highestKeys_.erase(&table); }
    /// Another number after each change of the tables.
    [[nodiscard]] std::uint64_t version() const;

private:
    Statement& ready(const std::string& sql);
    static void noteRollback(void* connection);

    SQLite::Database database_;
    Transaction transaction_{database_};
    std::unique_ptr<WriteWatch> writes_;
    std::map<std::string, std::unique_ptr<Statement>> prepared_;
    std::unordered_map<const Table*, std::int64_t> highestKeys_;
    std::uint64_t rollbacks_ = 0;
    std::function<void()> beforeFirstDeletion_;
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
