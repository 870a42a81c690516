#pragma once

#include "runtime/RunTimeError.h"

#include <compare>
#include <concepts>
#include <cstdint>
#include <limits>
#include <string>

namespace tallybrook {

/// A signed integer of the program: arithmetic whose result does not fit fails with error 6 and leaves the
/// operands as they were.
template <std::signed_integral Stored>
class Integer {
public:
    constexpr Integer() = default;

    /// Takes any whole number; error 6 where it does not fit.
    // Implicit, so that `gMode = 2` and `count + 1` read as they are meant.
    template <std::integral Number>
    constexpr Integer(Number number) : value_(checked(static_cast<std::int64_t>(number))) {}

    [[nodiscard]] constexpr Stored value() const { return value_; }

    friend constexpr Integer operator+(Integer a, Integer b) { return wide(a) + wide(b); }
    friend constexpr Integer operator-(Integer a, Integer b) { return wide(a) - wide(b); }
    friend constexpr Integer operator*(Integer a, Integer b) { return wide(a) * wide(b); }
    constexpr Integer& operator+=(Integer other) { return *this = *this + other; }
    constexpr Integer& operator-=(Integer other) { return *this = *this - other; }
    constexpr Integer& operator++() { return *this += 1; }
    constexpr Integer& operator--() { return *this -= 1; }

    friend constexpr bool operator==(Integer, Integer) = default;
    friend constexpr auto operator<=>(Integer, Integer) = default;

private:
    static constexpr std::int64_t wide(Integer number) { return number.value_; }

    static constexpr Stored checked(std::int64_t number) {
        if (number < std::numeric_limits<Stored>::min() || number > std::numeric_limits<Stored>::max())
            throw RunTimeError(error::kOverflow);
        return static_cast<Stored>(number);
    }

    Stored value_ = 0;
};

using Int16 = Integer<std::int16_t>;
using Int32 = Integer<std::int32_t>;

/// The number as text, in decimal.
template <std::signed_integral Stored>
std::string text(Integer<Stored> number) {
    return std::to_string(number.value());
}

}  // namespace tallybrook
