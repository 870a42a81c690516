#pragma once

#include <bit>
#include <initializer_list>
#include <string>

namespace tallybrook::sample {

/// Pins that stand, by their numbers from 1 to 10.
class Pins {
public:
    constexpr Pins() = default;
    constexpr Pins(std::initializer_list<int> numbers) {
        for (const int number : numbers)
            bits_ |= bitOf(number);
    }

    [[nodiscard]] constexpr int count() const { return std::popcount(bits_); }
    [[nodiscard]] constexpr bool stands(int number) const { return (bits_ & bitOf(number)) != 0; }
    constexpr void add(int number) { bits_ |= bitOf(number); }
    /// As a logbook holds them: "3-6-10".
    [[nodiscard]] const std::string& text() const;

private:
    static constexpr unsigned bitOf(int number) { return 1U << static_cast<unsigned>(number - 1); }

    unsigned bits_ = 0;
};

}  // namespace tallybrook::sample
