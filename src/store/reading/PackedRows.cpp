#include "store/reading/PackedRows.h"

#include "store/file/StoredValue.h"

#include <variant>

namespace tallybrook {

void PackedRows::addRow(const Statement& statement, int firstField,
                        const std::vector<const Column*>& fields) {
    starts_.push_back(values_.size());
    values_.add(statement.number(0));
    int column = firstField;
    for (const std::size_t field : projection_->fields)
        decode(statement.column(column++), fields[field]->type, [this](auto value) { values_.add(value); });
}

std::int64_t PackedRows::key(std::size_t row) const {
    return std::get<std::int64_t>(PackedValues::Reader(values_, starts_[row]).take());
}

Value PackedRows::value(std::size_t row, std::size_t field) const {
    PackedValues::Reader values(values_, starts_[row]);
    values.skip();  // the key
    for (std::size_t place = *projection_->places[field]; place > 0; --place)
        values.skip();
    return values.take();
}

}  // namespace tallybrook
