#include "store/file/TextFunctions.h"

#include "runtime/TextCompare.h"
#include "store/file/StoredValue.h"

#include <exception>
#include <new>
#include <string>
#include <string_view>

#include <sqlite3.h>

namespace tallybrook {

namespace {

/// Gives a function's whole number back. No exception may pass through the engine.
template <typename Compute>
void answer(sqlite3_context* context, Compute compute) noexcept {
    try {
        sqlite3_result_int(context, compute());
    } catch (const std::exception&) {
        sqlite3_result_error_nomem(context);
    }
}

/// tbk_compare(a, b): the order of two texts without case; Null if either is Null.
void compareFunction(sqlite3_context* context, int, sqlite3_value** arguments) {
    for (int i = 0; i < 2; ++i) {
        if (sqlite3_value_type(arguments[i]) == SQLITE_NULL)
            return sqlite3_result_null(context);
    }
    answer(context, [&] { return compareText(bytesOf(arguments[0]), bytesOf(arguments[1])); });
}

/// The text form of a stored value.
std::string textOf(sqlite3_value* stored, FieldType type) {
    struct TextForm {
        std::string operator()(std::string_view text) const { return std::string(text); }
        std::string operator()(const Value& value) const { return toText(value); }
    };
    return decode(stored, type, TextForm{});
}

/// tbk_like(value, pattern, type): whether the text form of a field's value is like the pattern.
void likeFunction(sqlite3_context* context, int, sqlite3_value** arguments) {
    if (sqlite3_value_type(arguments[0]) == SQLITE_NULL)
        return sqlite3_result_null(context);
    answer(context, [&] {
        const auto type = static_cast<FieldType>(sqlite3_value_int(arguments[2]));
        return likeText(textOf(arguments[0], type), bytesOf(arguments[1])) ? 1 : 0;
    });
}

/// The engine takes no failure from a comparison: without memory for one the bytes decide.
int collate(void*, int leftSize, const void* left, int rightSize, const void* right) noexcept {
    const std::string_view one{static_cast<const char*>(left), static_cast<std::size_t>(leftSize)};
    const std::string_view other{static_cast<const char*>(right), static_cast<std::size_t>(rightSize)};
    try {
        return compareText(one, other);
    } catch (const std::bad_alloc&) {
        return one.compare(other);
    }
}

}  // namespace

void addTextFunctions(const SQLite::Database& database) {
    constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
    sqlite3* const handle = database.getHandle();
    sqlite3_create_function(handle, "tbk_compare", 2, kFlags, nullptr, compareFunction, nullptr, nullptr);
    sqlite3_create_function(handle, "tbk_like", 3, kFlags, nullptr, likeFunction, nullptr, nullptr);
    sqlite3_create_collation(handle, "tbk", SQLITE_UTF8, nullptr, collate);
}

}  // namespace tallybrook
