#include "store/file/PackedValues.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <type_traits>
#include <utility>
#include <variant>

namespace tallybrook {

namespace {

/// What a value is, in its first byte. A byte above the last of these is a text as long as it tells.
enum Kind : std::uint8_t { kNull, kByte, kNumber, kReal, kDate, kLongText, kShortText };

constexpr std::size_t kLongestShortText = std::numeric_limits<std::uint8_t>::max() - kShortText;

static_assert(sizeof(DateTime::rep) == sizeof(std::int64_t) && sizeof(double) == sizeof(std::int64_t));

}  // namespace

/// Makes room for so many bytes more.
char* PackedValues::grow(std::size_t count) {
    const std::size_t size = bytes_.size();
    bytes_.resize(size + count);
    return bytes_.data() + size;
}

template <typename Number>
void PackedValues::append(std::uint8_t kind, Number number) {
    static_assert(std::is_trivially_copyable_v<Number>);
    char* const at = grow(1 + sizeof number);
    *at = static_cast<char>(kind);
    std::memcpy(at + 1, &number, sizeof number);
}

void PackedValues::add(Null) {
    *grow(1) = static_cast<char>(kNull);
}

void PackedValues::add(std::int64_t number) {
    if (std::in_range<std::uint8_t>(number))
        append(kByte, static_cast<std::uint8_t>(number));
    else
        append(kNumber, number);
}

void PackedValues::add(double number) {
    append(kReal, number);
}

void PackedValues::add(DateTime date) {
    append(kDate, date.time_since_epoch().count());
}

void PackedValues::add(std::string_view text) {
    if (text.size() <= kLongestShortText) {
        char* const at = grow(1 + text.size());
        *at = static_cast<char>(kShortText + text.size());
        std::ranges::copy(text, at + 1);
    } else {
        append(kLongText, text.size());
        bytes_ += text;
    }
}

void PackedValues::addValue(const Value& value) {
    std::visit([this](const auto& one) { add(one); }, value);
}

template <typename Number>
Number PackedValues::Reader::takeNumber() {
    Number number{};
    std::memcpy(&number, at_, sizeof number);
    at_ += sizeof number;
    return number;
}

std::string PackedValues::Reader::takeText(std::size_t size) {
    return {std::exchange(at_, at_ + size), size};
}

void PackedValues::Reader::skip() {
    const auto kind = takeNumber<std::uint8_t>();
    if (kind >= kShortText)
        at_ += kind - kShortText;
    else if (kind == kLongText)
        at_ += takeNumber<std::size_t>();
    else if (kind == kByte)
        ++at_;
    else if (kind != kNull)
        at_ += sizeof(std::int64_t);
}

Value PackedValues::Reader::take() {
    const auto kind = takeNumber<std::uint8_t>();
    switch (kind) {
        case kNull:
            return Null{};
        case kByte:
            return std::int64_t{takeNumber<std::uint8_t>()};
        case kNumber:
            return takeNumber<std::int64_t>();
        case kReal:
            return takeNumber<double>();
        case kDate:
            return DateTime{DateTime::duration{takeNumber<DateTime::rep>()}};
        case kLongText:
            return takeText(takeNumber<std::size_t>());
        default:
            return takeText(kind - kShortText);
    }
}

}  // namespace tallybrook
