#pragma once

#include "store/Query.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tallybrook {

/// The rows of a recordset as they were when it was opened, and behind them the rows that were added through
/// it. The former are read when they are first asked for, or before they are changed elsewhere.
class Snapshot : public UnreadRows {
public:
    Snapshot(Store::Connection& connection, const std::string& sql);
    ~Snapshot() override;
    Snapshot(const Snapshot&) = delete;
    Snapshot& operator=(const Snapshot&) = delete;

    [[nodiscard]] const Table& table() const { return *select_.table; }
    [[nodiscard]] const std::vector<const Column*>& fields() const { return select_.fields; }
    /// Whether its rows stand for rows of the table, so that they can be changed.
    [[nodiscard]] bool isUpdatable() const { return !select_.distinct; }
    void read() override;
    /// Rows that are newer than the opening never are: keys only grow.
    [[nodiscard]] bool mayHold(const Table& in, std::int64_t key) const override {
        return &in == select_.table && key <= lastKey_;
    }

    [[nodiscard]] std::size_t size();
    [[nodiscard]] StoredRow& row(std::size_t index);
    void append(StoredRow row) { added_.push_back(std::move(row)); }
    /// The row added last, without reading the others.
    [[nodiscard]] StoredRow& lastAdded() { return added_.back(); }
    void erase(std::size_t index);

private:
    Store::Connection& connection_;
    Select select_;
    std::int64_t lastKey_;
    bool isRead_ = false;
    std::vector<StoredRow> read_;
    std::vector<StoredRow> added_;
};

}  // namespace tallybrook
