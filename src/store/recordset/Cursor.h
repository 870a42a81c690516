#pragma once

#include "runtime/Value.h"
#include "store/reading/Reading.h"

#include <cstddef>
#include <cstdint>

namespace tallybrook {

/// Where a recordset stands among the rows of its snapshot: on one of them, before the first or past the
/// end. Errors of what asks for the row: 3021 where there is none.
class Cursor {
public:
    /// Stands on the first row, if there is one.
    explicit Cursor(Snapshot& rows) : rows_(rows) {}

    /// How many rows there are, without one that was deleted.
    [[nodiscard]] std::size_t count() { return rows_.size() - (place_.deleted ? 1 : 0); }
    [[nodiscard]] bool isPastEnd() { return settled().where == Where::PastEnd || isEmpty(); }
    [[nodiscard]] bool isBeforeFirst() { return settled().where == Where::BeforeFirst || isEmpty(); }

    // The row added last is read without counting the others.
    [[nodiscard]] std::int64_t key() { return isOnAdded() ? rows_.lastAddedKey() : rows_.key(index()); }
    [[nodiscard]] Value value(std::size_t field) {
        return isOnAdded() ? rows_.lastAddedValue(field) : rows_.value(index(), field);
    }
    /// Puts another value into the row as it is seen here; the table keeps what it has.
    void setValue(std::size_t field, Value value);

    // A move away from a deleted row drops it for good. Moves tell whether there was somewhere to go.
    bool toFirst();
    bool toLast();
    bool toNext();
    bool toPrevious();
    /// To the row that was added to the table under that key, behind all others.
    void toAdded(std::int64_t key);

    /// Counts where the row stands among the others.
    void settle();
    /// The row was deleted. It stays current until the next move, and cannot be read.
    void noteDeleted() { place_.deleted = true; }

private:
    enum class Where {
        AtStart,  // on the first row if there is one; not looked at yet
        OnRow,
        LastAdded,  // on the row added last; its index not counted yet
        BeforeFirst,
        PastEnd,
    };
    struct Place {
        Where where = Where::AtStart;
        std::size_t index = 0;
        bool deleted = false;
    };

    [[nodiscard]] bool isEmpty() { return rows_.size() == 0; }
    [[nodiscard]] bool isOnAdded() const { return place_.where == Where::LastAdded; }
    Place& settled() {
        if (place_.where == Where::AtStart || isOnAdded())
            settle();
        return place_;
    }
    /// Of the current row; error 3021 where there is none. Asked for with every field that is read.
    [[nodiscard]] std::size_t index() {
        if (place_.where != Where::OnRow || place_.deleted)
            requireRow();
        return place_.index;
    }
    void requireRow();
    bool dropDeleted();
    bool leave();

    Snapshot& rows_;
    Place place_;
};

}  // namespace tallybrook
