#include "store/reading/ReadAhead.h"

#include "store/sql/FieldValue.h"
#include "store/sql/SelectText.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include <fmt/format.h>

namespace tallybrook {

namespace {

constexpr std::string_view kEvent = "fldSessionNum";  // which event a row belongs to, in every table
constexpr std::int64_t kNear = 16;  // the next event of a walk is at most so many keys on: some are deleted
constexpr std::int64_t kFirstReach = 4;
constexpr std::int64_t kLongestReach = 256;
constexpr std::size_t kMostBytesKept = 12 << 20;  // the frames of ten thousand events, but not of any number

bool isWholeNumber(const Criterion& criterion) {
    const FieldType type = criterion.column->type;
    return criterion.comparator == Comparator::Equal &&
           (type == FieldType::Number16 || type == FieldType::Number32);
}

bool isOfEvent(const Criterion& criterion) {
    return criterion.column->name == kEvent;
}

}  // namespace

bool ReadAhead::serves(const Select& select) {
    return !select.distinct && select.anyOf.size() == 1 &&
           std::ranges::all_of(select.anyOf.front(), isWholeNumber) &&
           std::ranges::any_of(select.anyOf.front(), isOfEvent);
}

ReadAhead::ReadAhead(SQLite::Database& database, const Select& select)
    : database_(database), select_(select) {
    const std::vector<Criterion>& all = select.anyOf.front();
    for (std::size_t i = 0; i < all.size(); ++i)
        criteria_.push_back(i);
    std::stable_partition(criteria_.begin(), criteria_.end(),
                          [&](std::size_t i) { return isOfEvent(all[i]); });
}

std::optional<RowRange> ReadAhead::find(const Question& question,
                                        const std::shared_ptr<const Projection>& projection) {
    if (!takeWanted(question.values))
        return std::nullopt;
    if (projection != projection_ || question.version != version_ || question.lastKey != lastKey_)
        startAnew(question, projection);
    const std::int64_t event = wanted_.front();
    const Block* block = blockOf(event);
    if (block == nullptr && goesOn(event))
        block = &readFrom(event);
    else if (block == nullptr)
        reach_ = kFirstReach;
    lastEvent_ = event;
    return block == nullptr ? std::nullopt : std::optional(block->find(wanted_));
}

/// False if not all that is asked for is whole numbers.
bool ReadAhead::takeWanted(const std::vector<Value>& values) {
    wanted_.clear();
    return std::ranges::all_of(criteria_, [&](std::size_t i) {
        const std::optional<std::int64_t> number = wholeNumberIn(std::get<double>(values[i]));
        wanted_.push_back(number.value_or(0));
        return number.has_value();
    });
}

void ReadAhead::startAnew(const Question& question, const std::shared_ptr<const Projection>& projection) {
    kept_.clear();
    keptBytes_ = 0;
    passing_.clear();
    lastEvent_.reset();
    reach_ = kFirstReach;
    lastKey_ = question.lastKey;
    version_ = question.version;
    if (projection != projection_)
        statement_.reset();
    projection_ = projection;
}

const ReadAhead::Block* ReadAhead::blockOf(std::int64_t event) const {
    for (const auto* const blocks : {&passing_, &kept_}) {
        const auto behind = blocks->upper_bound(event);
        if (behind != blocks->begin() && event < std::prev(behind)->second.endEvent)
            return &std::prev(behind)->second;
    }
    return nullptr;
}

/// Whether the event is the next one of a walk.
bool ReadAhead::goesOn(std::int64_t event) const {
    return lastEvent_ && event >= *lastEvent_ && event <= *lastEvent_ + kNear;
}

const ReadAhead::Block& ReadAhead::readFrom(std::int64_t event) {
    Block block = read(event, event + reach_);
    reach_ = std::min(reach_ * 2, kLongestReach);
    return keep(event, std::move(block));
}

ReadAhead::Block ReadAhead::read(std::int64_t firstEvent, std::int64_t endEvent) {
    if (!statement_)
        statement_.emplace(database_, sql());
    Statement::Use use(*statement_);
    use->bind(1, firstEvent);
    use->bind(2, endEvent);
    Block block;
    block.endEvent = endEvent;
    block.rows = std::make_shared<PackedRows>(projection_);
    Wanted group(criteria_.size());
    while (use->executeStep()) {
        if (use->number(0) <= lastKey_ && takeGroup(group))
            addRow(block, group);
    }
    block.starts.push_back(block.rows->size());
    block.rows->shrink();
    return block;
}

/// For SQLite: the key, the columns of the criteria, the fields.
std::string ReadAhead::sql() const {
    std::string columns;
    std::string order;
    for (const std::size_t i : criteria_) {
        columns += ", " + columnOf(i).name;
        order += ordering(columnOf(i)) + ", ";
    }
    for (const std::size_t field : projection_->fields)
        columns += ", " + select_.fields[field]->name;
    for (const Column* const column : select_.orderBy)
        order += ordering(*column) + ", ";
    const std::string& key = select_.table->key().name;
    return fmt::format("SELECT {0}{1} FROM {2} WHERE {3} >= ? AND {3} < ? ORDER BY {4}{0}", key, columns,
                       select_.table->name, kEvent, order);
}

/// Which group the statement's row belongs to; false if it holds anything but whole numbers where the
/// criteria ask for them, and so answers none.
bool ReadAhead::takeGroup(Wanted& group) const {
    for (std::size_t i = 0; i < group.size(); ++i) {
        const std::optional<std::int64_t> number = statement_->wholeNumber(static_cast<int>(i) + 1);
        if (!number)
            return false;
        group[i] = *number;
    }
    return true;
}

void ReadAhead::addRow(Block& block, const Wanted& group) const {
    if (block.groups.empty() || block.groups.back() != group) {
        block.groups.push_back(group);
        block.starts.push_back(block.rows->size());
    }
    const int firstField = static_cast<int>(criteria_.size()) + 1;
    block.rows->addRow(*statement_, firstField, select_.fields);
}

const ReadAhead::Block& ReadAhead::keep(std::int64_t firstEvent, Block block) {
    const bool hasRoom = keptBytes_ + block.bytes() <= kMostBytesKept;
    if (hasRoom)
        keptBytes_ += block.bytes();
    else
        passing_.clear();
    return (hasRoom ? kept_ : passing_).insert_or_assign(firstEvent, std::move(block)).first->second;
}

RowRange ReadAhead::Block::find(const Wanted& wanted) const {
    const auto group = std::ranges::lower_bound(groups, wanted);
    if (group == groups.end() || *group != wanted)
        return {.rows = rows, .first = 0, .count = 0};
    const auto index = static_cast<std::size_t>(group - groups.begin());
    return {.rows = rows, .first = starts[index], .count = starts[index + 1] - starts[index]};
}

std::size_t ReadAhead::Block::bytes() const {
    const std::size_t width = groups.empty() ? 0 : groups.front().size();
    return rows->bytes() + groups.size() * (sizeof(Wanted) + (width + 1) * sizeof(std::int64_t));
}

}  // namespace tallybrook
