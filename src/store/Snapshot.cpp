#include "store/Snapshot.h"

#include <utility>

namespace tallybrook {

Snapshot::Snapshot(Store::Connection& connection, const std::string& sql)
    : connection_(connection),
      statement_(connection.understand(sql)),
      lastKey_(connection.highestKey(table())) {
    connection_.enlist(*this);
}

Snapshot::~Snapshot() {
    if (!isWhole_)
        connection_.strike(*this);
}

void Snapshot::read() {
    if (!isWhole_)
        readFields(true);
}

/// Reads what is worth reading, where nothing has been read.
void Snapshot::look() {
    if (!isRead_)
        readFields(false);
}

void Snapshot::readFields(bool all) {
    read_ = statement_.plan->read(
        {.values = statement_.values, .lastKey = lastKey_, .version = connection_.version()}, all);
    isRead_ = true;
    isWhole_ = read_.projection->fields.size() == fields().size();
    if (isWhole_)
        connection_.strike(*this);
}

std::size_t Snapshot::size() {
    look();
    return read_.size() + added_.size();
}

StoredRow* Snapshot::added(std::size_t row) {
    look();
    return row < read_.size() ? nullptr : &added_[row - read_.size()];
}

std::int64_t Snapshot::key(std::size_t row) {
    const StoredRow* const own = added(row);
    return own != nullptr ? own->key : read_.keys[row];
}

const Value& Snapshot::value(std::size_t row, std::size_t field) {
    if (const StoredRow* const own = added(row))
        return own->values[field];
    if (!read_.holds(field)) {
        statement_.plan->want(field);
        readFields(std::exchange(hasMissed_, true));
    }
    return read_.value(row, field);
}

void Snapshot::setValue(std::size_t row, std::size_t field, Value value) {
    StoredRow* const own = added(row);
    if (own == nullptr)
        read();
    (own != nullptr ? own->values[field] : read_.value(row, field)) = std::move(value);
}

void Snapshot::erase(std::size_t row) {
    if (added(row) != nullptr)
        added_.erase(added_.begin() + static_cast<std::ptrdiff_t>(row - read_.size()));
    else
        read_.erase(row);
}

}  // namespace tallybrook
