#include "carry/Conversion.h"

#include "runtime/RunTimeError.h"
#include "runtime/TextCompare.h"
#include "runtime/TextForms.h"
#include "store/sql/FieldValue.h"

#include <fmt/format.h>

namespace tallybrook::carry {

namespace {

constexpr const char* kIsEmptyNow = "it is empty now";

const char* nameOf(FieldType type) {
    switch (type) {
        case FieldType::Number16:
            return "a number from -32768 to 32767";
        case FieldType::Number32:
            return "a number from -2147483648 to 2147483647";
        case FieldType::Double:
            return "a number";
        case FieldType::Date:
            return "a date";
        case FieldType::Text:
            break;
    }
    return "a text";
}

/// What a value says, cut where it is long.
std::string shown(const Value& value) {
    constexpr std::size_t kMost = 40;
    const std::string text = toText(value);
    const std::string_view begin = firstCharacters(text, kMost);
    return fmt::format("\"{}{}\"", begin, begin.size() < text.size() ? "..." : "");
}

/// The value as the store's own kinds have it; none for an unreadable one.
struct ToValue {
    Value operator()(const Unreadable& /*value*/) const { return Null{}; }
    template <typename Held>
    Value operator()(const Held& held) const {
        return held;
    }
};

/// What of a value is not in what became of it: a fraction or a time of day.
std::string lostOf(const Value& before, const Value& after) {
    const auto* const number = std::get_if<double>(&before);
    const auto* const whole = std::get_if<std::int64_t>(&after);
    if (number != nullptr && whole != nullptr && static_cast<double>(*whole) != *number)
        return fmt::format("{} was rounded to {}", doubleText(*number), *whole);
    const auto* const moment = std::get_if<DateTime>(&before);
    const auto* const date = std::get_if<DateTime>(&after);
    if (moment != nullptr && date != nullptr && *moment != *date)
        return fmt::format("the time of day, {}, was left out", timeText(*moment));
    return {};
}

}  // namespace

Converted converted(const Cell& cell, FieldType type, int currentYear) {
    if (const auto* const unreadable = std::get_if<Unreadable>(&cell))
        return {Null{}, fmt::format("there is {}; {}", unreadable->what, kIsEmptyNow)};
    const Value before = std::visit(ToValue{}, cell);
    try {
        const Value after = toFieldValue(before, type, currentYear);
        return {after, lostOf(before, after)};
    } catch (const RunTimeError&) {
        return {Null{}, fmt::format("{} is not {}; {}", shown(before), nameOf(type), kIsEmptyNow)};
    }
}

}  // namespace tallybrook::carry
