#include "store/recordset/OpenRecordset.h"

#include "runtime/TextCompare.h"
#include "store/sql/FieldValue.h"

#include <algorithm>

#include <fmt/format.h>
#include <sqlite3.h>

namespace tallybrook {

OpenRecordset::OpenRecordset(Reading& reading, const std::function<void()>& rowShown, const std::string& sql)
    : reading_(reading), rowShown_(rowShown), rows_(reading, sql), cursor_(rows_), pending_(rows_) {}

std::size_t OpenRecordset::fieldCalled(std::string_view name) const {
    auto found = std::ranges::find(fields(), name, &Column::name);  // as it nearly always is written
    if (found == fields().end())
        found = std::ranges::find_if(
            fields(), [name](const Column* field) { return compareText(field->name, name) == 0; });
    if (found == fields().end())
        throw RunTimeError(error::kUnknownField);
    return static_cast<std::size_t>(found - fields().begin());
}

void OpenRecordset::moveFirst() {
    endPending();
    showRowAfter(cursor_.toFirst());
}

void OpenRecordset::moveLast() {
    endPending();
    showRowAfter(cursor_.toLast());
}

void OpenRecordset::moveNext() {
    endPending();
    showRowAfter(cursor_.toNext());
}

void OpenRecordset::movePrevious() {
    endPending();
    showRowAfter(cursor_.toPrevious());
}

/// What comes before a move: an edit is stored, a new row discarded.
void OpenRecordset::endPending() {
    if (pending_.kind() == PendingRow::Kind::Edit)
        changeRow();
    pending_.drop();
}

/// A move that has nowhere to go fails; what was pending before it is gone all the same.
void OpenRecordset::showRowAfter(bool move) const {
    showRow();
    if (!move)
        throw RunTimeError(error::kNoCurrentRow);
}

void OpenRecordset::showRow() const {
    if (rowShown_)
        rowShown_();
}

Value OpenRecordset::read(std::size_t field) {
    if (const Value* const written = pending_.written(field); written != nullptr)
        return *written;
    return isNew() ? Value{} : cursor_.value(field);
}

Value OpenRecordset::readAt(int row, std::size_t field) {
    if (row < 0 || static_cast<std::size_t>(row) >= rows_.size())
        throw RunTimeError(error::kSubscriptOutOfRange);
    return rows_.value(static_cast<std::size_t>(row), field);
}

void OpenRecordset::requireUpdatable() const {
    if (!rows_.isUpdatable())
        throw RunTimeError(error::kValueNotTaken);
}

void OpenRecordset::write(std::size_t field, const Value& value) {
    const bool isFirst = pending_.kind() == PendingRow::Kind::None;
    if (isFirst)
        requireRow();
    const Column& column = *fields()[field];
    requireUpdatable();
    if (&column == &rows_.table().key())
        throw RunTimeError(error::kValueNotTaken);
    Value taken = toFieldValue(value, column.type, reading_.currentYear());
    if (isFirst)
        pending_.begin(PendingRow::Kind::Edit);
    pending_.write(field, std::move(taken));
}

void OpenRecordset::addNew() {
    requireUpdatable();
    pending_.begin(PendingRow::Kind::New);
    showRow();
}

void OpenRecordset::update() {
    switch (pending_.kind()) {
        case PendingRow::Kind::New:
            return insertRow();
        case PendingRow::Kind::Edit:
            return changeRow();
        case PendingRow::Kind::None:
            return requireRow();  // nothing to store
    }
}

void OpenRecordset::cancelUpdate() {
    if (pending_.drop() != PendingRow::Kind::None)
        showRow();
}

void OpenRecordset::deleteRow() {
    if (isNew())
        return cancelUpdate();
    const std::int64_t key = cursor_.key();
    requireUpdatable();
    const Table& table = rows_.table();
    reading_.readBeforeChange(table, key);
    cursor_.settle();
    onFile([&] {
        Statement::Use use(reading_.connection().prepared(
            fmt::format("DELETE FROM {} WHERE {} = ?", table.name, table.key().name)));
        use->bind(1, key);
        use->exec();
    });
    pending_.drop();
    cursor_.noteDeleted();
}

void OpenRecordset::resync() {
    if (isNew())
        throw RunTimeError(error::kNoCurrentRow);
    std::optional<std::vector<Value>> stored = rows_.storedNow(cursor_.key());
    if (!stored)
        throw RunTimeError(error::kRowGone);
    cursor_.settle();
    for (std::size_t field = 0; field < stored->size(); ++field)
        cursor_.setValue(field, std::move((*stored)[field]));
    pending_.drop();
}

void OpenRecordset::insertRow() {
    sqlite3* const database = reading_.connection().database().getHandle();
    sqlite3_set_last_insert_rowid(database, 0);
    try {
        pending_.insert(reading_.connection());
    } catch (const RunTimeError&) {
        // A disk that fails at the very end of a save may have kept it. It must not be stored once more.
        if (const std::int64_t key = sqlite3_last_insert_rowid(database); isStored(key))
            showInserted(key);
        throw;
    }
    showInserted(sqlite3_last_insert_rowid(database));
}

bool OpenRecordset::isStored(std::int64_t key) {
    try {
        return key != 0 && rows_.storedNow(key).has_value();
    } catch (const RunTimeError&) {
        return false;
    }
}

void OpenRecordset::showInserted(std::int64_t key) {
    reading_.connection().noteKey(rows_.table(), key);
    pending_.drop();
    cursor_.toAdded(key);
}

void OpenRecordset::changeRow() {
    const std::int64_t key = cursor_.key();
    reading_.readBeforeChange(rows_.table(), key);
    pending_.change(reading_.connection(), key);
    for (std::size_t field = 0; field < fields().size(); ++field) {
        if (const Value* const written = pending_.written(field); written != nullptr)
            cursor_.setValue(field, *written);
    }
    pending_.drop();
}

}  // namespace tallybrook
