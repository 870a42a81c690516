#pragma once

#include "runtime/Value.h"
#include "store/reading/PackedRows.h"
#include "store/reading/Plan.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tallybrook {

class Reading;

/// The rows that a statement found when it was opened, and behind them the rows that were added since through
/// the same recordset. The former are read when they are first asked for, in full before one of them is
/// changed. Errors of all that reads: -2147467259 for what SQLite reports.
class Snapshot {
public:
    /// Errors as Reading::understand(). `reading` must outlive this.
    Snapshot(Reading& reading, const std::string& sql);
    ~Snapshot();
    Snapshot(const Snapshot&) = delete;
    Snapshot& operator=(const Snapshot&) = delete;

    [[nodiscard]] const Table& table() const { return *select().table; }
    [[nodiscard]] const std::vector<const Column*>& fields() const { return select().fields; }
    /// Whether its rows stand for rows of the table, so that they can be changed.
    [[nodiscard]] bool isUpdatable() const { return !select().distinct; }

    /// The row of that key is about to be changed or deleted: reads it now if it may be among these, so that
    /// the change does not show.
    void readBeforeChange(const Table& in, std::int64_t key);
    /// Reads all fields of the rows found now instead of one after another.
    void readAll();

    [[nodiscard]] std::size_t size() {
        look();
        return readCount_ + own_.size();
    }
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

    /// The fields of the table's row of that key as they are stored now; nothing if it is not there.
    [[nodiscard]] std::optional<std::vector<Value>> storedNow(std::int64_t key);

private:
    /// What is at hand of the rows found.
    enum class Found {
        Unread,
        Partly,       // the fields that were worth reading at first
        PartlyAgain,  // and those asked for since; one more, and all are worth it
        Whole,
        TakenOver,  // among the own rows, where they can be changed
    };
    /// A row that can be changed; without values as long as nobody asks for them.
    struct OwnRow {
        std::int64_t key = 0;
        std::vector<Value> values;
    };

    [[nodiscard]] const Select& select() const { return statement_.plan->select(); }
    /// Reads what is worth reading, where nothing has been read.
    void look() {
        if (found_ == Found::Unread)
            readFields(Found::Partly);
    }
    void readFields(Found wanted);
    void readMissing();
    void readAdded();
    [[nodiscard]] const PackedRows* glimpseOf(std::size_t row);
    void takeOver();
    [[nodiscard]] bool isOwn(std::size_t row) {
        look();
        return row >= readCount_;
    }
    std::vector<Value>& valuesOf(OwnRow& own);

    Reading& reading_;
    UnderstoodStatement statement_;
    std::int64_t lastKey_;
    Found found_ = Found::Unread;
    std::shared_ptr<const PackedRows> read_;
    std::size_t readCount_ = 0;  // of these, until they are taken over
    // Few of these, for somebody who looks at some rows of many: by their place, rows on end.
    std::map<std::size_t, std::shared_ptr<const PackedRows>> glimpses_;
    std::deque<OwnRow> own_;          // behind those read: the rows added; once taken over, all
    std::size_t firstUnreadOwn_ = 0;  // the others were read before a change, if they were there
};

}  // namespace tallybrook
