#pragma once

#include "runtime/DateTime.h"
#include "runtime/Integer.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace tallybrook {

/// Nothing known: what a column holds that nobody has filled.
struct Null {
    friend constexpr bool operator==(Null, Null) = default;
};

/// What a field holds or is given: nothing, a whole number, a double, a text (UTF-8) or a date.
using Value = std::variant<Null, std::int64_t, double, std::string, DateTime>;

/// Values of the program's own number types.
template <std::signed_integral Stored>
Value valueOf(Integer<Stored> number) {
    return static_cast<std::int64_t>(number.value());
}

[[nodiscard]] inline bool isNull(const Value& value) {
    return std::holds_alternative<Null>(value);
}

/// Whether the value is just this text. A Null never is.
bool isText(const Value& value, std::string_view text);

/// The value as text: empty for a Null, the usual text forms for numbers and dates.
std::string toText(const Value& value);

/// The same without a copy of a text: the value's own, or else `made`, which takes the text form.
const std::string& toText(const Value& value, std::string& made);

/// The value as a number. A text gives its leading number (0 where there is none), a date the days since
/// the zero date; error 94 for a Null.
double toDouble(const Value& value);

/// The leading number of the value's text; 0 for a Null and where there is none.
double leadingNumberOf(const Value& value);

/// The value rounded to the nearest whole number, halves to even; error 94 for a Null, error 6 outside the
/// range.
Int16 toInt16(const Value& value);
Int32 toInt32(const Value& value);

/// The value as a date: a text as it is read in `currentYear` (error 13 where it is no date), a number as
/// days since the zero date; error 94 for a Null.
DateTime toDate(const Value& value, int currentYear);

}  // namespace tallybrook
