#include "store/sql/FieldValue.h"

#include "runtime/TextForms.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>

#include <fmt/format.h>

namespace tallybrook {

namespace {

/// Whether the commas of an unsigned number part its whole digits into groups of three, and all of them.
bool isGrouped(std::string_view number) {
    const std::size_t end = std::min(number.find_first_of(".eE"), number.size());
    for (std::size_t at = 0; at < number.size(); ++at) {
        const bool isPlace = at > 0 && at < end && (end - at) % 4 == 0;
        if ((number[at] == ',') != isPlace)
            return false;
    }
    return true;
}

/// A text that reads as a number as a whole: blanks around it, a sign, grouping commas, a point, an exponent.
double wholeTextAsNumber(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        throw RunTimeError(error::kValueNotTaken);
    std::string_view rest = text.substr(first, text.find_last_not_of(' ') - first + 1);
    const bool negative = rest.starts_with('-');
    if (negative || rest.starts_with('+'))
        rest.remove_prefix(1);
    std::string digits(rest);
    const bool isMisgrouped = std::erase(digits, ',') != 0 && !isGrouped(rest);
    double number = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (isMisgrouped || digits.starts_with('-') || read.ec != std::errc{} ||
        read.ptr != digits.data() + digits.size())
        throw RunTimeError(error::kValueNotTaken);
    return negative ? -number : number;
}

double asNumber(const Value& value) {
    const auto* const text = std::get_if<std::string>(&value);
    const double number = text != nullptr ? wholeTextAsNumber(*text) : toDouble(value);
    if (!std::isfinite(number))
        throw RunTimeError(error::kValueNotTaken);
    return number;
}

Value converted(const Value& value, FieldType type, int currentYear) {
    switch (type) {
        case FieldType::Number16:
            return valueOf(toInt16(asNumber(value)));
        case FieldType::Number32:
            return valueOf(toInt32(asNumber(value)));
        case FieldType::Double:
            return asNumber(value);
        case FieldType::Date:
            return dateOnly(toDate(value, currentYear));
        case FieldType::Text:
            break;
    }
    return toText(value);
}

}  // namespace

Value toFieldValue(const Value& value, FieldType type, int currentYear) {
    if (isNull(value))
        return value;
    try {
        return converted(value, type, currentYear);
    } catch (const RunTimeError&) {
        throw RunTimeError(error::kValueNotTaken);
    }
}

std::string storedDate(DateTime date) {
    const std::chrono::year_month_day day{std::chrono::floor<std::chrono::days>(date)};
    return fmt::format("{:04}-{:02}-{:02}", int{day.year()}, unsigned{day.month()}, unsigned{day.day()});
}

std::optional<DateTime> storedDateIn(std::string_view text) {
    int year = 0;
    unsigned month = 0;
    unsigned day = 0;
    const char* const begin = text.data();
    if (text.size() != 10 || text[4] != '-' || text[7] != '-')
        return std::nullopt;
    const auto reads = [](const char* from, const char* to, auto& number) {
        return *from >= '0' && *from <= '9' && std::from_chars(from, to, number).ptr == to;
    };
    if (!reads(begin, begin + 4, year) || !reads(begin + 5, begin + 7, month) ||
        !reads(begin + 8, begin + 10, day))
        return std::nullopt;
    const std::chrono::year_month_day date{std::chrono::year{year}, std::chrono::month{month},
                                           std::chrono::day{day}};
    return date.ok() ? std::optional{DateTime{std::chrono::local_days{date}}} : std::nullopt;
}

std::optional<std::int64_t> wholeNumberIn(double real) {
    constexpr double kToldApart = 9007199254740992;  // 2 to the power of 53
    if (std::abs(real) >= kToldApart || std::trunc(real) != real)
        return std::nullopt;
    return static_cast<std::int64_t>(real);
}

}  // namespace tallybrook
