#include "runtime/Ascii.h"
#include "runtime/TextForms.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>

#include <fmt/format.h>

namespace tallybrook {

namespace {

std::string withoutAny(std::string_view text, std::string_view unwanted) {
    std::string kept;
    std::ranges::copy_if(text, std::back_inserter(kept),
                         [&](char c) { return unwanted.find(c) == std::string_view::npos; });
    return kept;
}

/// Reads digits with an optional point and exponent; 0 where there are none, error 6 where they are too many
/// for a double.
double readUnsigned(std::string_view digits) {
    double number = 0;
    if (digits.empty() || (!isDigit(digits.front()) && digits.front() != '.'))
        return 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (read.ec != std::errc::result_out_of_range)
        return number;
    const std::string_view used = digits.substr(0, static_cast<std::size_t>(read.ptr - digits.data()));
    const bool tooSmall =
        used.find_first_of("eE") != std::string_view::npos
            ? used.find("e-") != std::string_view::npos || used.find("E-") != std::string_view::npos
            : used.find_first_not_of('0') == used.find('.');
    if (!tooSmall)
        throw RunTimeError(error::kOverflow);
    return 0;
}

/// Rounds to the nearest whole number, halves to even, and checks that it fits before it is converted.
template <typename Number>
Number rounded(double number) {
    const double whole = std::nearbyint(number);
    if (!(std::abs(whole) < 1e18))
        throw RunTimeError(error::kOverflow);
    return static_cast<std::int64_t>(whole);
}

/// The decimal digits of a number that is not negative: the digits before the point and after it.
struct Decimal {
    std::string whole;
    std::string fraction;
};

/// Writes the number with 15 significant digits and no exponent.
Decimal toDecimal(double number) {
    const std::string scientific = fmt::format("{:.14e}", number);  // d.dddddddddddddde+xx
    const std::string digits = scientific.substr(0, 1) + scientific.substr(2, 14);
    int exponent = 0;
    const char* const begin = scientific.data() + 17;
    std::from_chars(begin + (*begin == '+' ? 1 : 0), scientific.data() + scientific.size(), exponent);
    if (exponent < 0)
        return {"0", std::string(static_cast<std::size_t>(-exponent - 1), '0') + digits};
    const auto before = static_cast<std::size_t>(exponent) + 1;
    if (before >= digits.size())
        return {digits + std::string(before - digits.size(), '0'), ""};
    return {digits.substr(0, before), digits.substr(before)};
}

/// Adds one to a run of decimal digits; it may grow by one digit.
void increase(std::string& digits) {
    for (std::size_t at = digits.size(); at-- > 0;) {
        if (digits[at] != '9') {
            ++digits[at];
            return;
        }
        digits[at] = '0';
    }
    digits.insert(digits.begin(), '1');
}

/// The digits with `decimals` places behind the point, without the point, rounded half away from zero.
std::string roundedDigits(const Decimal& decimal, std::size_t decimals) {
    std::string digits = decimal.whole + decimal.fraction.substr(0, decimals);
    digits.resize(decimal.whole.size() + decimals, '0');
    if (decimal.fraction.size() > decimals && decimal.fraction[decimals] >= '5')
        increase(digits);
    return digits;
}

std::string grouped(std::string whole) {
    for (std::size_t at = whole.size(); at > 3;) {
        at -= 3;
        whole.insert(at, ",");
    }
    return whole;
}

/// The number where the text is a few digits and nothing else, as nearly every one is.
std::optional<double> plainNumber(std::string_view text) {
    constexpr std::size_t kMostDigits = 15;  // those that a double tells apart
    if (text.empty() || text.size() > kMostDigits || !std::ranges::all_of(text, isDigit))
        return std::nullopt;
    std::int64_t number = 0;
    for (const char digit : text)
        number = number * 10 + (digit - '0');
    return static_cast<double>(number);
}

}  // namespace

double leadingNumber(std::string_view text) {
    if (const std::optional<double> plain = plainNumber(text))
        return *plain;
    const std::string packed = withoutAny(text, " \t\n");
    std::string_view rest = packed;
    const bool negative = rest.starts_with('-');
    if (negative || rest.starts_with('+'))
        rest.remove_prefix(1);
    const double number = readUnsigned(rest);
    return negative && number != 0 ? -number : number;
}

Int16 toInt16(double number) {
    return rounded<Int16>(number);
}

Int32 toInt32(double number) {
    return rounded<Int32>(number);
}

std::string formatNumber(double number, int decimals) {
    if (!std::isfinite(number))
        throw RunTimeError(error::kOverflow);
    const auto places = static_cast<std::size_t>(decimals);
    std::string digits = roundedDigits(toDecimal(std::abs(number)), places);
    const bool negative = number < 0 && digits.find_first_not_of('0') != std::string::npos;
    const std::string fraction = digits.substr(digits.size() - places);
    digits.resize(digits.size() - places);
    return (negative ? "-" : "") + grouped(digits) + (places == 0 ? "" : "." + fraction);
}

double readFormatted(std::string_view text) {
    return leadingNumber(withoutAny(text, ","));
}

std::string doubleText(double number) {
    return number == 0 ? "0" : fmt::format("{}", number);  // a negative zero has no sign
}

std::string plainDecimal(double number) {
    if (number == 0)
        return "0";
    std::array<char, 400> digits{};  // the longest has 309 before the point, or 341 behind it
    const auto written =
        std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed);
    return {digits.data(), written.ptr};
}

}  // namespace tallybrook
