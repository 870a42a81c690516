#include "carry/OldRows.h"

#include "carry/Conversion.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>

namespace tallybrook::carry {

OldRows::OldRows(NewLogbook& logbook, int currentYear, CarriedOver& result)
    : logbook_(logbook), currentYear_(currentYear), result_(result) {
    for (const Table& table : tables())
        result_.tables.push_back({.name = table.name});
}

void OldRows::take(const Message& message) {
    if (isAtEnd_)
        throw ReadingBroken{};
    std::visit([this](const auto& held) { takeIn(held); }, message);
}

std::string OldRows::work() const {
    return table_ == nullptr ? "Reading the old logbook" : "Carrying over " + table_->name;
}

std::int64_t OldRows::rowsTold() const {
    return carried_ == nullptr ? 0 : carried_->told;
}

std::int64_t OldRows::rowsRead() const {
    return carried_ == nullptr ? 0 : carried_->read;
}

void OldRows::takeIn(const TableBegins& message) {
    table_ = findTable(message.name);
    const auto found = std::ranges::find(result_.tables, message.name, &CarriedTable::name);
    if (found == result_.tables.end())
        throw ReadingBroken{};
    carried_ = &*found;
    if (!begun_.insert(message.name).second)
        throw ReadingBroken{};
    carried_->told = message.toldRows;
    columns_ = matchedColumns(*table_, message.columns);
    if (columns_.empty() || columns_.front().column != &table_->key())
        throw OldLogbookRefused(fmt::format("Its table {} has no column {}, so it is no logbook.",
                                            table_->name, table_->key().name));
    tellMissingColumns(message);
    std::vector<const Column*> columns;
    for (const MatchedColumn& matched : columns_)
        columns.push_back(matched.column);
    logbook_.begin(*table_, std::move(columns));
}

void OldRows::tellMissingColumns(const TableBegins& message) {
    for (const Column& column : table_->columns) {
        if (std::ranges::find(columns_, &column, &MatchedColumn::column) == columns_.end())
            note(fmt::format("{} has no column {}: it is as in a new row.", table_->name, column.name));
    }
    for (std::size_t place = 0; place < message.columns.size(); ++place) {
        if (std::ranges::find(columns_, place, &MatchedColumn::place) == columns_.end())
            note(fmt::format("{} has a column {}, which a logbook does not have: it stays behind.",
                             table_->name, message.columns[place]));
    }
}

void OldRows::takeIn(const RowFound& message) {
    if (table_ == nullptr || message.cells.size() != columns_.size())
        throw ReadingBroken{};
    ++carried_->read;
    const std::vector<Value> row = convertedRow(message);
    if (isNull(row.front()))
        note(fmt::format("A row of {} has no key, and stays behind.", table_->name));
    else if (logbook_.add(row))
        ++carried_->carried;
    else
        noteRow(row, "there is another row of this key; this one stays behind");
}

std::vector<Value> OldRows::convertedRow(const RowFound& message) {
    std::vector<Value> row;
    for (std::size_t at = 0; at < columns_.size(); ++at) {
        Converted value = converted(message.cells[at], columns_[at].column->type, currentYear_);
        row.push_back(std::move(value.value));
        if (!value.told.empty())
            noteRow(row, fmt::format("{}: {}", columns_[at].column->name, value.told));
    }
    return row;
}

void OldRows::takeIn(const TableEnds& message) {
    if (table_ == nullptr)
        throw ReadingBroken{};
    if (message.lostRows != 0)
        note(fmt::format("Rows of {} that are damaged and cannot be read: {}.", table_->name,
                         message.lostRows));
    if (carried_->told != carried_->read)
        note(fmt::format("The file says that {} has {} rows; {} could be read.", table_->name, carried_->told,
                         carried_->read));
    table_ = nullptr;
    carried_ = nullptr;
}

void OldRows::takeIn(const LinkedTable& message) {
    throw OldLogbookRefused(
        fmt::format("The rows of its table {} lie in another database: {}\r\nPlease carry that one over.",
                    message.name, message.database));
}

void OldRows::takeIn(const OtherTable& message) {
    note(fmt::format("The table {} is none of a logbook's: it stays behind.", message.name));
}

void OldRows::takeIn(const ReadingFailed& message) {
    throw OldLogbookRefused(
        fmt::format("It is damaged: {}. Please look for another copy of it.", message.why));
}

void OldRows::takeIn(const ReadingEnds& /*message*/) {
    for (const Table& table : tables()) {
        if (!begun_.contains(table.name))
            throw OldLogbookRefused(fmt::format("It has no table {}, so it is no logbook.", table.name));
    }
    isAtEnd_ = true;
}

void OldRows::noteRow(const std::vector<Value>& row, const std::string& text) {
    const std::string key = isNull(row.front()) ? "without a key" : toText(row.front());
    note(fmt::format("{} {}, {}.", table_->name, key, text));
}

void OldRows::note(std::string text) {
    if (result_.notes.size() < kMostNotes)
        result_.notes.push_back(std::move(text));
    else
        ++result_.furtherNotes;
}

}  // namespace tallybrook::carry
