#pragma once

#include "store/Connection.h"
#include "store/Query.h"

#include <cstddef>
#include <map>
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
    void readBeforeChange(const Table& in, std::int64_t key) override;

    [[nodiscard]] std::size_t size();
    [[nodiscard]] std::int64_t key(std::size_t row);
    [[nodiscard]] Value value(std::size_t row, std::size_t field);
    void setValue(std::size_t row, std::size_t field, Value value);
    void erase(std::size_t row);

    /// Puts the row that was added to the table under that key behind the others; it is read like them.
    void append(std::int64_t key);
    /// The key of the row added last, without reading the others.
    [[nodiscard]] std::int64_t lastAddedKey() const { return own_.back().key; }
    [[nodiscard]] const Value& lastAddedValue(std::size_t field) { return valuesOf(own_.back())[field]; }
    void setLastAdded(std::size_t field, Value value) { valuesOf(own_.back())[field] = std::move(value); }

private:
    [[nodiscard]] const Select& select() const { return statement_.plan->select(); }
    void look();
    void readAll();
    void readOwn();
    void readFields(bool all);
    [[nodiscard]] const PackedRows* glimpseOf(std::size_t row);
    void makeOwn();
    [[nodiscard]] bool isOwn(std::size_t row);
    std::vector<Value>& valuesOf(StoredRow& own);

    Store::Connection& connection_;
    UnderstoodStatement statement_;
    std::int64_t lastKey_;
    bool isRead_ = false;
    bool hasMissed_ = false;  // a field that was not read
    bool isWhole_ = false;
    RowRange read_;
    // Few of these, for somebody who looks at some rows of many: by their place, rows on end.
    std::map<std::size_t, std::shared_ptr<const PackedRows>> glimpses_;
    // Behind those: the rows added, without values as long as nobody asks; once a row was changed, all of
    // them.
    std::vector<StoredRow> own_;
    bool hasUnreadOwn_ = false;
};

}  // namespace tallybrook
