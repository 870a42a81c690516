#include "store/recordset/FieldFinder.h"

#include "runtime/RunTimeError.h"
#include "runtime/TextCompare.h"
#include "store/sql/Schema.h"

#include <algorithm>

namespace tallybrook {

namespace {

std::size_t indexOf(const std::vector<const Column*>& fields, std::string_view name) {
    auto found = std::ranges::find(fields, name, &Column::name);  // as it nearly always is written
    if (found == fields.end())
        found = std::ranges::find_if(
            fields, [name](const Column* field) { return compareText(field->name, name) == 0; });
    if (found == fields.end())
        throw RunTimeError(error::kUnknownField);
    return static_cast<std::size_t>(found - fields.begin());
}

}  // namespace

std::size_t FieldFinder::find(const std::vector<const Column*>& fields, std::string_view name) {
    if (next_.size() < fields.size())
        next_.resize(fields.size());
    std::size_t& next = next_[last_];
    if (next >= fields.size() || fields[next]->name != name)
        next = indexOf(fields, name);
    return last_ = next;
}

}  // namespace tallybrook
