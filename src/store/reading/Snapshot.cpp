#include "store/reading/Snapshot.h"

#include "store/reading/Reading.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tallybrook {

namespace {

constexpr std::size_t kGlimpse = 64;  // rows

/// All values of a row.
std::vector<Value> valuesIn(const PackedRows& rows, std::size_t row, std::size_t fieldCount) {
    std::vector<Value> values;
    values.reserve(fieldCount);
    for (std::size_t field = 0; field < fieldCount; ++field)
        values.push_back(rows.value(row, field));
    return values;
}

}  // namespace

Snapshot::Snapshot(Reading& reading, const std::string& sql)
    : reading_(reading),
      statement_(reading.understand(sql)),
      lastKey_(reading.connection().highestKey(table())) {
    reading_.enlist(*this);
}

Snapshot::~Snapshot() {
    reading_.strike(*this);
}

/// Rows that are newer than the opening were added here or are none of these: keys only grow.
void Snapshot::readBeforeChange(const Table& in, std::int64_t key) {
    if (&in == &table())
        key <= lastKey_ ? readAll() : readAdded();
}

void Snapshot::readAll() {
    if (found_ < Found::Whole)
        readFields(Found::Whole);
}

void Snapshot::readAdded() {
    for (; firstUnreadOwn_ < own_.size(); ++firstUnreadOwn_) {
        OwnRow& own = own_[firstUnreadOwn_];
        // One whose adding was rolled back is not there; asking for its values tells.
        if (own.values.empty())
            own.values = storedNow(own.key).value_or(std::vector<Value>{});
    }
}

void Snapshot::readFields(Found wanted) {
    read_ = statement_.plan->read(
        {.values = statement_.values, .lastKey = lastKey_, .version = reading_.connection().version()},
        wanted == Found::Whole);
    readCount_ = read_->size();
    const bool isWhole = read_->projection().fields.size() == fields().size();
    found_ = isWhole ? Found::Whole : wanted;
}

/// Reads the rows once more for a field that was left out.
void Snapshot::readMissing() {
    readFields(found_ == Found::Partly ? Found::PartlyAgain : Found::Whole);
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
    for (std::size_t one = place * kGlimpse; one < std::min((place + 1) * kGlimpse, readCount_); ++one)
        keys.push_back(read_->key(one));
    return (glimpses_[place] = statement_.plan->readRows(keys)).get();
}

std::optional<std::vector<Value>> Snapshot::storedNow(std::int64_t key) {
    const std::shared_ptr<const PackedRows> row = statement_.plan->readRows({key});
    if (!row)
        return std::nullopt;
    return valuesIn(*row, 0, fields().size());
}

std::vector<Value>& Snapshot::valuesOf(OwnRow& own) {
    if (own.values.empty()) {
        std::optional<std::vector<Value>> values = storedNow(own.key);
        if (!values)
            throw RunTimeError(error::kRowGone);
        own.values = *std::move(values);
    }
    return own.values;
}

void Snapshot::takeOver() {
    if (found_ == Found::TakenOver)
        return;
    readAll();
    std::deque<OwnRow> rows;
    for (std::size_t row = 0; row < readCount_; ++row)
        rows.push_back({.key = read_->key(row), .values = valuesIn(*read_, row, fields().size())});
    firstUnreadOwn_ += rows.size();
    std::ranges::move(own_, std::back_inserter(rows));
    own_ = std::move(rows);
    readCount_ = 0;
    found_ = Found::TakenOver;
}

std::int64_t Snapshot::key(std::size_t row) {
    return isOwn(row) ? own_[row - readCount_].key : read_->key(row);
}

Value Snapshot::value(std::size_t row, std::size_t field) {
    if (isOwn(row))
        return valuesOf(own_[row - readCount_])[field];
    if (!read_->projection().holds(field)) {
        statement_.plan->want(field);
        if (const PackedRows* const glimpse = glimpseOf(row); glimpse != nullptr)
            return glimpse->value(row % kGlimpse, field);
        readMissing();
    }
    return read_->value(row, field);
}

void Snapshot::setValue(std::size_t row, std::size_t field, Value value) {
    if (!isOwn(row))
        takeOver();
    valuesOf(own_[row - readCount_])[field] = std::move(value);
}

void Snapshot::erase(std::size_t row) {
    takeOver();
    own_.erase(own_.begin() + static_cast<std::ptrdiff_t>(row));
    if (row < firstUnreadOwn_)
        --firstUnreadOwn_;
}

void Snapshot::append(std::int64_t key) {
    own_.push_back({.key = key, .values = {}});
}

}  // namespace tallybrook
