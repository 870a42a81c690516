#include "store/reading/PackedRows.h"

#include "store/file/StoredValue.h"

#include <array>
#include <cstring>
#include <limits>
#include <string_view>
#include <type_traits>

namespace tallybrook {

namespace {

/// What a value is, in its first byte. A byte above the last of these is a text as long as it tells.
enum Kind : std::uint8_t { kNull, kByte, kNumber, kReal, kDate, kLongText, kShortText };

constexpr std::size_t kLongestShortText = std::numeric_limits<std::uint8_t>::max() - kShortText;

/// Takes values out of packed bytes, one after another.
class Unpacking {
public:
    explicit Unpacking(const char* at) : at_(at) {}

    template <typename Number>
    Number take() {
        Number number{};
        std::memcpy(&number, at_, sizeof number);
        at_ += sizeof number;
        return number;
    }

    void skipValue() {
        const auto kind = take<std::uint8_t>();
        if (kind >= kShortText)
            at_ += kind - kShortText;
        else if (kind == kLongText)
            at_ += take<std::size_t>();
        else if (kind == kByte)
            ++at_;
        else if (kind != kNull)
            at_ += sizeof(std::int64_t);
    }

    Value takeValue() {
        const auto kind = take<std::uint8_t>();
        switch (kind) {
            case kNull:
                return Null{};
            case kByte:
                return std::int64_t{take<std::uint8_t>()};
            case kNumber:
                return take<std::int64_t>();
            case kReal:
                return take<double>();
            case kDate:
                return DateTime{DateTime::duration{take<DateTime::rep>()}};
            case kLongText:
                return takeText(take<std::size_t>());
            default:
                return takeText(kind - kShortText);
        }
    }

private:
    std::string takeText(std::size_t size) { return {std::exchange(at_, at_ + size), size}; }

    const char* at_;
};

static_assert(sizeof(DateTime::rep) == sizeof(std::int64_t) && sizeof(double) == sizeof(std::int64_t));

}  // namespace

void PackedRows::append(std::uint8_t byte) {
    bytes_.push_back(static_cast<char>(byte));
}

template <typename Number>
void PackedRows::append(Number number) {
    static_assert(std::is_trivially_copyable_v<Number>);
    std::array<char, sizeof number> bytes;
    std::memcpy(bytes.data(), &number, sizeof number);
    bytes_.append(bytes.data(), sizeof number);
}

void PackedRows::addRow(std::int64_t key) {
    starts_.push_back(bytes_.size());
    append(key);
}

void PackedRows::add(Null) {
    append(std::uint8_t{kNull});
}

void PackedRows::add(std::int64_t number) {
    if (number >= 0 && number <= std::numeric_limits<std::uint8_t>::max()) {
        append(std::uint8_t{kByte});
        append(static_cast<std::uint8_t>(number));
    } else {
        append(std::uint8_t{kNumber});
        append(number);
    }
}

void PackedRows::add(double number) {
    append(std::uint8_t{kReal});
    append(number);
}

void PackedRows::add(DateTime date) {
    append(std::uint8_t{kDate});
    append(date.time_since_epoch().count());
}

void PackedRows::add(std::string_view text) {
    if (text.size() <= kLongestShortText) {
        append(static_cast<std::uint8_t>(kShortText + text.size()));
    } else {
        append(std::uint8_t{kLongText});
        append(text.size());
    }
    bytes_ += text;
}

void PackedRows::addRow(const Statement& statement, int firstField,
                        const std::vector<const Column*>& fields) {
    addRow(statement.number(0));
    int column = firstField;
    for (const std::size_t field : projection_->fields)
        decode(statement.column(column++), fields[field]->type, [this](auto value) { add(value); });
}

std::int64_t PackedRows::key(std::size_t row) const {
    return Unpacking(bytes_.data() + starts_[row]).take<std::int64_t>();
}

Value PackedRows::value(std::size_t row, std::size_t field) const {
    Unpacking unpacking(bytes_.data() + starts_[row] + sizeof(std::int64_t));
    for (std::size_t place = *projection_->places[field]; place > 0; --place)
        unpacking.skipValue();
    return unpacking.takeValue();
}

}  // namespace tallybrook
