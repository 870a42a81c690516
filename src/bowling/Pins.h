#pragma once

#include <array>
#include <bit>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The pins, and the text that names those left standing after a ball: "7", "10", "3-6-10".
namespace tallybrook {

inline constexpr int kPins = 10;

/// A set of pins, by their numbers from 1 to 10.
class Pins {
public:
    constexpr Pins() = default;
    constexpr Pins(std::initializer_list<int> numbers) {
        for (const int number : numbers)
            add(number);
    }
    /// A full rack.
    [[nodiscard]] static constexpr Pins all() { return Pins((1U << kPins) - 1); }

    [[nodiscard]] constexpr bool has(int number) const { return (bits_ & bitOf(number)) != 0; }
    [[nodiscard]] constexpr bool isEmpty() const { return bits_ == 0; }
    [[nodiscard]] constexpr int count() const { return std::popcount(bits_); }
    constexpr void add(int number) { bits_ |= bitOf(number); }
    constexpr void remove(int number) { bits_ &= ~bitOf(number); }
    constexpr Pins& operator|=(Pins others) {
        bits_ |= others.bits_;
        return *this;
    }

    friend constexpr bool operator==(Pins, Pins) = default;
    /// The names of all sets, to be found by their pins.
    friend const std::string& pinString(Pins pins);

private:
    constexpr explicit Pins(unsigned bits) : bits_(bits) {}
    [[nodiscard]] static constexpr unsigned bitOf(int number) {
        return 1U << static_cast<unsigned>(number - 1);
    }

    unsigned bits_ = 0;
};

/// The numbers of the pins in ascending order, joined by "-"; empty if there are none.
const std::string& pinString(Pins pins);

/// Adds the pins that a stored text names, in the order of the text. Error 9 for a number outside 1 to 10;
/// the pins before it are added.
void addNamedPins(std::string_view text, Pins& pins);

/// The pins of a text that is a list of their numbers and nothing else; nothing for any other text, the empty
/// one included.
std::optional<Pins> readPins(std::string_view text);

/// The rows of the rack from the back to the head pin, each from the left as the bowler sees it.
const std::array<std::vector<int>, 4>& rackRows();

}  // namespace tallybrook
