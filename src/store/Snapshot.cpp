#include "store/Snapshot.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tallybrook {

namespace {

constexpr std::size_t kGlimpse = 64;  // rows

}  // namespace

Snapshot::Snapshot(Store::Connection& connection, const std::string& sql)
    : connection_(connection),
      statement_(connection.understand(sql)),
      lastKey_(connection.highestKey(table())) {
    connection_.enlist(*this);
}

Snapshot::~Snapshot() {
    connection_.strike(*this);
}

/// Rows that are newer than the opening were added here or are none of these: keys only grow.
void Snapshot::readBeforeChange(const Table& in, std::int64_t key) {
    if (&in == &table())
        key <= lastKey_ ? readAll() : readOwn();
}

void Snapshot::readAll() {
    if (!isWhole_)
        readFields(true);
}

void Snapshot::readOwn() {
    if (!std::exchange(hasUnreadOwn_, false))
        return;
    for (StoredRow& own : own_) {
        // One whose adding was rolled back is not there; asking for its values tells.
        if (own.values.empty())
            readRow(connection_, table(), fields(), own);
    }
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
    isWhole_ = read_.rows->projection().fields.size() == fields().size();
}

/// The rows around one of those found, read for themselves; nullptr once so many were looked at that all are
/// worth reading.
const PackedRows* Snapshot::glimpseOf(std::size_t row) {
    constexpr std::size_t kMostGlimpses = 4;
    const std::size_t place = row / kGlimpse;
    if (const auto known = glimpses_.find(place); known != glimpses_.end())
        return known->second.get();
    if (glimpses_.size() == kMostGlimpses)
        return nullptr;
    std::vector<std::int64_t> keys;
    for (std::size_t one = place * kGlimpse; one < std::min((place + 1) * kGlimpse, read_.count); ++one)
        keys.push_back(read_.rows->key(read_.first + one));
    return (glimpses_[place] = statement_.plan->readRows(keys)).get();
}

std::vector<Value>& Snapshot::valuesOf(StoredRow& own) {
    if (own.values.empty() && !readRow(connection_, table(), fields(), own))
        throw RunTimeError(error::kRowGone);
    return own.values;
}

/// Takes the rows that were read over, so that they can be changed.
void Snapshot::makeOwn() {
    readAll();
    std::vector<StoredRow> rows;
    rows.reserve(read_.count + own_.size());
    for (std::size_t row = read_.first; row < read_.first + read_.count; ++row) {
        StoredRow own{.key = read_.rows->key(row), .values = {}};
        for (std::size_t field = 0; field < fields().size(); ++field)
            own.values.push_back(read_.rows->value(row, field));
        rows.push_back(std::move(own));
    }
    std::ranges::move(own_, std::back_inserter(rows));
    own_ = std::move(rows);
    read_.count = 0;
}

std::size_t Snapshot::size() {
    look();
    return read_.count + own_.size();
}

bool Snapshot::isOwn(std::size_t row) {
    look();
    return row >= read_.count;
}

std::int64_t Snapshot::key(std::size_t row) {
    return isOwn(row) ? own_[row - read_.count].key : read_.rows->key(read_.first + row);
}

Value Snapshot::value(std::size_t row, std::size_t field) {
    if (isOwn(row))
        return valuesOf(own_[row - read_.count])[field];
    if (!read_.rows->projection().holds(field)) {
        statement_.plan->want(field);
        if (const PackedRows* const glimpse = glimpseOf(row); glimpse != nullptr)
            return glimpse->value(row % kGlimpse, field);
        readFields(std::exchange(hasMissed_, true));
    }
    return read_.rows->value(read_.first + row, field);
}

void Snapshot::setValue(std::size_t row, std::size_t field, Value value) {
    if (!isOwn(row))
        makeOwn();
    valuesOf(own_[row - read_.count])[field] = std::move(value);
}

void Snapshot::erase(std::size_t row) {
    makeOwn();
    own_.erase(own_.begin() + static_cast<std::ptrdiff_t>(row));
}

void Snapshot::append(std::int64_t key) {
    own_.push_back({.key = key, .values = {}});
    hasUnreadOwn_ = true;
}

}  // namespace tallybrook
