#pragma once

#include "runtime/Value.h"
#include "store/file/Connection.h"
#include "store/reading/Reading.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tallybrook {

/// What has been written into a row that is not stored yet: a new one, or a change of the current one.
class PendingRow {
public:
    enum class Kind { None, Edit, New };

    /// Of the snapshot's table, with the snapshot's fields.
    explicit PendingRow(const Snapshot& rows) : table_(rows.table()), fields_(rows.fields()) {}

    [[nodiscard]] Kind kind() const { return kind_; }
    /// Begins a row into which nothing is written yet; what was pending is dropped.
    void begin(Kind kind);
    /// Drops what is pending; tells what it was.
    Kind drop() { return std::exchange(kind_, Kind::None); }

    void write(std::size_t field, Value value) { written_[field] = std::move(value); }
    /// What was written into a field; nullptr where nothing is pending, or nothing was.
    [[nodiscard]] const Value* written(std::size_t field) const {
        return kind_ != Kind::None && written_[field] ? &*written_[field] : nullptr;
    }

    /// Stores it as a new row of the table. Errors: -2147467259 for what SQLite reports.
    void insert(Connection& connection) const;
    /// Stores the fields written in the row of that key. Errors as insert(), and -2147217864 where it is
    /// gone.
    void change(Connection& connection, std::int64_t key) const;

private:
    template <typename Each>
    void forEachWritten(Each each) const;
    [[nodiscard]] std::string insertStatement() const;
    [[nodiscard]] std::string updateStatement() const;
    int bindTo(Statement& statement) const;

    const Table& table_;
    const std::vector<const Column*>& fields_;
    Kind kind_ = Kind::None;
    std::vector<std::optional<Value>> written_;  // by field, while a row is pending
};

}  // namespace tallybrook
