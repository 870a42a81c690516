#pragma once

#include "runtime/Value.h"
#include "store/sql/FieldValue.h"

#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

#include <sqlite3.h>

namespace tallybrook {

/// The bytes of a stored value, which stay as long as the value does.
inline std::string_view bytesOf(sqlite3_value* stored) {
    const void* const bytes = sqlite3_value_blob(stored);
    return {static_cast<const char*>(bytes), static_cast<std::size_t>(sqlite3_value_bytes(stored))};
}

/// Calls `take` with what a stored value means in a column of that type: a Null, a std::int64_t, a double, a
/// DateTime or a std::string_view. A value of another kind than the column, put in by another program, is
/// taken as it is.
template <typename Take>
auto decode(sqlite3_value* stored, FieldType type, Take&& take) {
    switch (sqlite3_value_type(stored)) {
        case SQLITE_NULL:
            return take(Null{});
        case SQLITE_INTEGER:
            return take(std::int64_t{sqlite3_value_int64(stored)});
        case SQLITE_FLOAT:
            return take(sqlite3_value_double(stored));
        default:
            break;
    }
    const std::string_view text = bytesOf(stored);
    if (type == FieldType::Date) {
        if (const std::optional<DateTime> date = storedDateIn(text))
            return take(*date);
    }
    return take(text);
}

/// Puts what a stored value means into a value.
inline void assign(Value& value, sqlite3_value* stored, FieldType type) {
    decode(stored, type, [&value](auto meant) {
        if constexpr (!std::is_same_v<decltype(meant), std::string_view>)
            value = meant;
        else if (auto* const text = std::get_if<std::string>(&value); text != nullptr)
            text->assign(meant);
        else
            value.emplace<std::string>(meant);
    });
}

/// What a stored value means, as a value of its own.
inline Value valueIn(sqlite3_value* stored, FieldType type) {
    Value value;
    assign(value, stored, type);
    return value;
}

}  // namespace tallybrook
