#pragma once

#include "store/file/PackedValues.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <SQLiteCpp/SQLiteCpp.h>

namespace tallybrook {

/// Keeps what is stored together, so that it goes to the disk at once instead of row by row. A failure that
/// the disk or short memory is to blame for makes the engine undo all of it, also what had succeeded. That is
/// then stored again row by row, under the same keys, as it would have been without a transaction.
class Transaction {
public:
    explicit Transaction(SQLite::Database& database) : database_(database) {}
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// Whether what is stored is kept together now; a failure can have ended that.
    [[nodiscard]] bool isOpen() const;
    /// Keeps together what is stored from now on. Errors: SQLite::Exception.
    void begin();
    /// Brings what was stored to the disk, at once or else row by row; nothing where none is open. Throws
    /// SQLite::Exception where that fails: what could not be stored, and what was stored behind it, is lost.
    /// What the disk has kept although it reported a failure is not stored once more.
    void commit();
    /// The same, and keeps together what is stored from then on.
    void commitSoFar();

    [[nodiscard]] SQLite::Database& database() const { return database_; }

    // What statements tell of themselves.

    /// A statement is about to change rows with these values bound.
    void noteChange(std::string_view sql, const PackedValues& values);
    /// It has succeeded: what is kept does not grow without end. Errors as commit() raises them.
    void noteSuccess();
    /// It, or one that reads, has failed.
    void noteFailure(bool isChange) noexcept;

private:
    /// Changes on end that one statement has made.
    struct Changes {
        std::string sql;
        std::size_t count;
    };

    /// A row that was added.
    struct AddedRow {
        std::string table;
        std::int64_t key;
    };

    void dropLast();
    void noteAddedRow();
    [[nodiscard]] bool wasKept() const;
    [[nodiscard]] bool storeAgain();
    void forget();

    SQLite::Database& database_;
    bool isKept_ = false;
    // What is kept.
    std::vector<Changes> changes_;
    PackedValues values_;  // that were bound, change after change
    std::size_t count_ = 0;
    std::size_t sizeBeforeLast_ = 0;  // of the values
    std::optional<AddedRow> firstRow_;
};

}  // namespace tallybrook
