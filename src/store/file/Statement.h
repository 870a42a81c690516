#pragma once

#include "runtime/Value.h"
#include "store/file/PackedValues.h"
#include "store/sql/FieldValue.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

namespace tallybrook {

class Transaction;

/// A statement, prepared once and run again and again. It takes columns straight from SQLite, without an
/// object for each, since rows are read by the thousand. Errors: SQLite::Exception.
class Statement {
public:
    Statement(const SQLite::Database& database, const std::string& sql);
    /// One that takes part in what is kept together.
    Statement(Transaction& transaction, const std::string& sql);

    /// Binds a value to a parameter, counted from 1, in the form in which it is stored. What is bound stays
    /// until it is bound anew; what a change is run with is bound anew from the first parameter on.
    void bind(int index, const Value& value);
    /// The same for a text that stays as it is until the statement has run.
    void bindWithoutCopy(int index, std::string_view text);

    /// Goes to the next row; false behind the last one.
    bool executeStep();
    /// Runs what gives no rows; returns how many rows it has changed.
    int exec();
    /// Runs such a statement once with the next values, one for each parameter.
    void runWith(PackedValues::Reader& values);
    /// Ends the run, so that parameters can be bound anew.
    void reset();

    /// What stands in a column of the row, counted from 0, until the next step.
    [[nodiscard]] sqlite3_value* column(int index) const {
        return sqlite3_column_value(statement_.get(), index);
    }
    /// The whole number in a column.
    [[nodiscard]] std::int64_t number(int index) const;
    /// The number in a column where it holds a whole one, be it stored as a real.
    [[nodiscard]] std::optional<std::int64_t> wholeNumber(int index) const {
        sqlite3_value* const stored = column(index);
        switch (sqlite3_value_type(stored)) {
            case SQLITE_INTEGER:
                return sqlite3_value_int64(stored);
            case SQLITE_FLOAT:
                return wholeNumberIn(sqlite3_value_double(stored));
            default:
                return std::nullopt;
        }
    }

    /// Whether somebody runs it at the moment.
    [[nodiscard]] bool isInUse() const { return uses_ > 0; }
    /// A run of the statement: resets it in the end, however that comes.
    class Use {
    public:
        explicit Use(Statement& statement) : statement_(statement) { ++statement_.uses_; }
        ~Use() {
            --statement_.uses_;
            statement_.reset();
        }
        Use(const Use&) = delete;
        Use& operator=(const Use&) = delete;
        Statement* operator->() { return &statement_; }
        Statement& operator*() { return statement_; }

    private:
        Statement& statement_;
    };

private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const;
    };
    void require(int result) const;

    PackedValues& boundFrom(int index);

    sqlite3* database_;
    std::unique_ptr<sqlite3_stmt, Finalize> statement_;
    int uses_ = 0;
    Transaction* transaction_ = nullptr;
    bool isChange_ = false;  // in the transaction
    PackedValues bound_;     // of a change
};

}  // namespace tallybrook
