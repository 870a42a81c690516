#pragma once

#include "store/Connection.h"
#include "store/Query.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace tallybrook {

/// The rows of a recordset as they were when it was opened, and behind them the rows that were added through
/// it. The former are read when they are first asked for, in full before one of them is changed.
class Snapshot : public UnreadRows {
public:
    Snapshot(Store::Connection& connection, const std::string& sql);
    ~Snapshot() override;
    Snapshot(const Snapshot&) = delete;
    Snapshot& operator=(const Snapshot&) = delete;

    [[nodiscard]] const Table& table() const { return *select().table; }
    [[nodiscard]] const std::vector<const Column*>& fields() const { return select().fields; }
    /// Whether its rows stand for rows of the table, so that they can be changed.
    [[nodiscard]] bool isUpdatable() const { return !select().distinct; }
    void read() override;
    /// Rows that are newer than the opening never are: keys only grow.
    [[nodiscard]] bool mayHold(const Table& in, std::int64_t key) const override {
        return &in == select().table && key <= lastKey_;
    }

    [[nodiscard]] std::size_t size();
    [[nodiscard]] std::int64_t key(std::size_t row);
    [[nodiscard]] const Value& value(std::size_t row, std::size_t field);
    void setValue(std::size_t row, std::size_t field, Value value);
    void erase(std::size_t row);

    /// Puts a new row behind the others.
    void append(StoredRow row) { added_.push_back(std::move(row)); }
    /// The row added last, without reading the others.
    [[nodiscard]] const StoredRow& lastAdded() const { return added_.back(); }
    void setLastAdded(std::size_t field, Value value) { added_.back().values[field] = std::move(value); }

private:
    [[nodiscard]] const Select& select() const { return statement_.plan->select(); }
    void look();
    void readFields(bool all);
    /// The row among the added ones; nullptr for one that was read.
    [[nodiscard]] StoredRow* added(std::size_t row);

    Store::Connection& connection_;
    UnderstoodStatement statement_;
    std::int64_t lastKey_;
    bool isRead_ = false;
    bool hasMissed_ = false;  // a field that was not read
    bool isWhole_ = false;
    ReadRows read_;
    std::vector<StoredRow> added_;
};

}  // namespace tallybrook
