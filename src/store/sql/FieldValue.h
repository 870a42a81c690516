#pragma once

#include "runtime/Value.h"
#include "store/sql/Schema.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tallybrook {

/// The value in a field's own type. A number field takes a text that reads as a number as a whole, a date
/// field one that reads as a date (of `currentYear` where it names no year); a Null stays one. Error
/// -2147217887 for anything else.
Value toFieldValue(const Value& value, FieldType type, int currentYear);

/// A date as it is stored: YYYY-MM-DD.
std::string storedDate(DateTime date);

/// The date that a stored text is; nothing where it is none.
std::optional<DateTime> storedDateIn(std::string_view text);

/// The whole number that a real is, if it is one of those that a real tells apart.
std::optional<std::int64_t> wholeNumberIn(double real);

}  // namespace tallybrook
