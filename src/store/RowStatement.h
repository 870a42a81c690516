#pragma once

#include "store/PackedRows.h"
#include "store/Schema.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <SQLiteCpp/SQLiteCpp.h>

struct sqlite3;
struct sqlite3_stmt;

namespace tallybrook {

/// A prepared statement that reads rows by the thousand: it takes columns straight from SQLite, without an
/// object for each. Errors are SQLite::Exception, as those of any other statement.
class RowStatement {
public:
    RowStatement(SQLite::Database& database, const std::string& sql);

    // Parameters are counted from 1.
    void bind(int index, std::int64_t number);
    void bind(int index, double number);
    void bind(int index, const std::string& text);
    void bind(int index);

    /// Goes to the next row; false behind the last one.
    bool executeStep();

    /// Reads through the statement, and ends the reading however that ends.
    class Use {
    public:
        explicit Use(RowStatement& statement) : statement_(statement) {}
        ~Use() { statement_.reset(); }
        Use(const Use&) = delete;
        Use& operator=(const Use&) = delete;
        RowStatement* operator->() { return &statement_; }
        RowStatement& operator*() { return statement_; }

    private:
        RowStatement& statement_;
    };

    /// The row's key, which stands in the first column.
    [[nodiscard]] std::int64_t key() const;
    /// The number in a column, counted from 0, where it holds a whole one, be it stored as a real.
    [[nodiscard]] std::optional<std::int64_t> wholeNumber(int column) const;
    /// Adds the row; the columns from `firstField` on are the fields that the rows hold.
    void addRowTo(PackedRows& rows, int firstField, const std::vector<const Column*>& fields) const;

private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const;
    };
    void require(int result) const;
    void reset();

    sqlite3* database_;
    std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

}  // namespace tallybrook
