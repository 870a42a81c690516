#include "carry/JetValue.h"

#include "carry/JetBytes.h"
#include "runtime/TextEncoding.h"

#include <chrono>
#include <cmath>
#include <cstddef>

namespace tallybrook::carry {

namespace {

constexpr std::string_view kCompressed = "\xFF\xFE";

/// The UTF-16 units of a text. A compressed one has a byte for each unit; a zero leads to units of two bytes,
/// and the next one back.
std::u16string unitsOf(std::string_view bytes) {
    const bool isCompressed = bytes.starts_with(kCompressed);
    bool isWide = !isCompressed;
    std::u16string units;
    for (std::size_t at = isCompressed ? kCompressed.size() : 0; at < bytes.size();) {
        if (isCompressed && bytes[at] == '\0') {
            isWide = !isWide;
            ++at;
        } else if (!isWide) {
            units += static_cast<unsigned char>(bytes[at++]);
        } else if (at + 1 < bytes.size()) {
            units += numberAt<char16_t>(bytes, at);
            at += sizeof(char16_t);
        } else {
            break;  // half a unit
        }
    }
    return units;
}

bool isFirstOfTwo(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool isSecondOfTwo(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// The units as characters.
std::u32string charactersIn(const std::u16string& units) {
    constexpr char32_t kReplacement = 0xFFFD;
    constexpr char32_t kFirst = 0xD800;
    constexpr char32_t kSecond = 0xDC00;
    constexpr char32_t kBeyond = 0x10000;
    std::u32string characters;
    for (std::size_t at = 0; at < units.size(); ++at) {
        if (isFirstOfTwo(units[at]) && at + 1 < units.size() && isSecondOfTwo(units[at + 1])) {
            const char32_t high = char32_t{units[at]} - kFirst;
            const char32_t low = char32_t{units[at + 1]} - kSecond;
            characters.push_back(kBeyond + (high << 10U) + low);
            ++at;
        } else {
            const bool isAlone = isFirstOfTwo(units[at]) || isSecondOfTwo(units[at]);
            characters.push_back(isAlone ? kReplacement : char32_t{units[at]});
        }
    }
    return characters;
}

/// Days since 12/30/1899, with the time of day as a fraction that counts forward before that day, too.
Cell dateOf(double stored) {
    constexpr double kFirst = -657434;  // 1/1/100
    constexpr double kEnd = 2958466;    // the day after 12/31/9999
    constexpr double kSecondsPerDay = 86400;
    if (!(stored > kFirst - 1 && stored < kEnd - 1 / kSecondsPerDay))
        return Unreadable{"a date outside of the calendar"};
    const double day = std::trunc(stored);
    const double time = std::abs(stored - day);
    return kZeroDate + std::chrono::days{static_cast<int>(day)} +
           std::chrono::seconds{std::lround(time * kSecondsPerDay)};
}

/// A sign and a whole number in four groups of four bytes, the highest group first, with its last `scale`
/// digits behind the point.
Cell decimalOf(std::string_view bytes, int scale) {
    constexpr std::size_t kGroups = 4;
    constexpr double kGroup = 4294967296;
    double number = 0;
    for (std::size_t group = 0; group < kGroups; ++group)
        number = number * kGroup + numberAt<std::uint32_t>(bytes, 1 + group * sizeof(std::uint32_t));
    number /= std::pow(10, scale);
    return (bytes.front() & '\x80') != 0 ? -number : number;
}

/// How many bytes a value of a fixed size has; 0 for others.
std::size_t sizeOf(JetType type) {
    switch (type) {
        case JetType::Byte:
            return 1;
        case JetType::Integer16:
            return 2;
        case JetType::Integer32:
        case JetType::Single:
            return 4;
        case JetType::Currency:
        case JetType::Double:
        case JetType::Date:
            return 8;
        case JetType::Decimal:
            return 17;
        default:
            return 0;
    }
}

}  // namespace

std::string jetText(std::string_view bytes) {
    return textOf(charactersIn(unitsOf(bytes)));
}

Cell cellOf(JetType type, std::string_view bytes, int scale) {
    constexpr double kCurrencyUnits = 10000;
    if (bytes.size() < sizeOf(type))
        return Unreadable{"a damaged value"};
    switch (type) {
        case JetType::Byte:
            return std::int64_t{numberAt<std::uint8_t>(bytes, 0)};
        case JetType::Integer16:
            return std::int64_t{numberAt<std::int16_t>(bytes, 0)};
        case JetType::Integer32:
            return std::int64_t{numberAt<std::int32_t>(bytes, 0)};
        case JetType::Currency:
            return static_cast<double>(numberAt<std::int64_t>(bytes, 0)) / kCurrencyUnits;
        case JetType::Single:
            return double{numberAt<float>(bytes, 0)};
        case JetType::Double:
            return numberAt<double>(bytes, 0);
        case JetType::Date:
            return dateOf(numberAt<double>(bytes, 0));
        case JetType::Text:
        case JetType::Memo:
            return jetText(bytes);
        case JetType::Decimal:
            return decimalOf(bytes, scale);
        case JetType::Object:
            return Unreadable{"a picture or another object"};
        default:
            return Unreadable{"bytes of no meaning here"};
    }
}

}  // namespace tallybrook::carry
