#include "bowling/Pins.h"

#include "runtime/RunTimeError.h"
#include "runtime/TextForms.h"

#include <charconv>

namespace tallybrook {

namespace {

using Names = std::array<std::string, 1U << kPins>;

/// The text of each set is that of the set without its last pin, and that pin.
Names allNames() {
    Names names;
    for (unsigned bits = 1; bits < names.size(); ++bits) {
        const unsigned last = std::bit_floor(bits);
        const std::string& before = names[bits - last];
        names[bits] = before + (before.empty() ? "" : "-") + std::to_string(std::bit_width(last));
    }
    return names;
}

constexpr bool isPin(double number) {
    return number >= 1 && number <= kPins;
}

/// Calls `take` with what stands between the dashes of a text. A dash at the end belongs to the last piece.
template <typename Take>
void forEachNumber(std::string_view text, Take take) {
    std::size_t begin = 0;
    while (begin < text.size()) {
        std::size_t end = text.find('-', begin);
        if (end == std::string_view::npos || end + 1 == text.size())
            end = text.size();
        take(text.substr(begin, end - begin));
        begin = end + 1;
    }
}

}  // namespace

const std::string& pinString(Pins pins) {
    static const Names kNames = allNames();
    return kNames[pins.bits_];
}

void addNamedPins(std::string_view text, Pins& pins) {
    forEachNumber(text, [&](std::string_view name) {
        const double number = leadingNumber(name);
        if (!isPin(number))
            throw RunTimeError(error::kSubscriptOutOfRange);
        pins.add(toInt16(number).value());
    });
}

std::optional<Pins> readPins(std::string_view text) {
    Pins pins;
    bool areAll = !text.empty();
    forEachNumber(text, [&](std::string_view name) {
        int number = 0;
        const auto [rest, failure] = std::from_chars(name.data(), name.data() + name.size(), number);
        areAll = areAll && failure == std::errc{} && rest == name.data() + name.size() && isPin(number);
        if (areAll)
            pins.add(number);
    });
    return areAll ? std::optional(pins) : std::nullopt;
}

const std::array<std::vector<int>, 4>& rackRows() {
    static const std::array<std::vector<int>, 4> kRows{{{7, 8, 9, 10}, {4, 5, 6}, {2, 3}, {1}}};
    return kRows;
}

}  // namespace tallybrook
