#include "store/recordset/Cursor.h"

#include <utility>

namespace tallybrook {

/// The place with its index counted.
void Cursor::settle() {
    if (place_.where == Where::AtStart)
        place_ = isEmpty() ? Place{.where = Where::PastEnd} : Place{.where = Where::OnRow};
    else if (isOnAdded())
        place_ = {.where = Where::OnRow, .index = rows_.size() - 1};
}

void Cursor::requireRow() {
    if (settled().where != Where::OnRow || place_.deleted)
        throw RunTimeError(error::kNoCurrentRow);
}

void Cursor::setValue(std::size_t field, Value value) {
    if (isOnAdded())
        rows_.setLastAdded(field, std::move(value));
    else
        rows_.setValue(index(), field, std::move(value));
}

/// Tells whether there was one.
bool Cursor::dropDeleted() {
    const bool deleted = std::exchange(place_.deleted, false);
    if (deleted)
        rows_.erase(place_.index);
    return deleted;
}

/// What comes before every move.
bool Cursor::leave() {
    settled();
    return dropDeleted();
}

bool Cursor::toFirst() {
    leave();
    place_ = isEmpty() ? Place{.where = Where::PastEnd} : Place{.where = Where::OnRow};
    return place_.where == Where::OnRow;
}

bool Cursor::toLast() {
    leave();
    place_ =
        isEmpty() ? Place{.where = Where::PastEnd} : Place{.where = Where::OnRow, .index = rows_.size() - 1};
    return place_.where == Where::OnRow;
}

bool Cursor::toNext() {
    const bool deleted = leave();
    if (place_.where == Where::PastEnd || (isEmpty() && !deleted))
        return false;
    std::size_t next = 0;
    if (place_.where == Where::OnRow)
        next = deleted ? place_.index : place_.index + 1;
    place_ =
        next < rows_.size() ? Place{.where = Where::OnRow, .index = next} : Place{.where = Where::PastEnd};
    return true;
}

bool Cursor::toPrevious() {
    const bool deleted = leave();
    if (place_.where == Where::BeforeFirst || (isEmpty() && !deleted))
        return false;
    const std::size_t behind = place_.where == Where::PastEnd ? rows_.size() : place_.index;
    place_ =
        behind > 0 ? Place{.where = Where::OnRow, .index = behind - 1} : Place{.where = Where::BeforeFirst};
    return true;
}

void Cursor::toAdded(std::int64_t key) {
    dropDeleted();
    rows_.append(key);
    place_ = {.where = Where::LastAdded};
}

}  // namespace tallybrook
