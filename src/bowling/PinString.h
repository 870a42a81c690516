#pragma once

#include "runtime/Integer.h"

#include <array>
#include <string>
#include <string_view>

// The pins left standing after a ball, as one text: "7", "10", "3-6-10".
namespace tallybrook {

inline constexpr int kPins = 10;

/// A flag for each pin, by its number from 1 to 10.
class PinFlags {
public:
    /// The flag of that pin; error 9 outside 1 to 10.
    [[nodiscard]] bool& operator()(Int16 pin);
    [[nodiscard]] int count() const;

private:
    std::array<bool, kPins> flags_{};
};

/// The numbers of the flagged pins in ascending order, joined by "-"; empty if there are none.
std::string pinString(PinFlags pins);

/// Flags the pins that a stored text names, in the order of the text. Error 9 for a number outside 1 to 10;
/// the pins before it stay flagged.
void markPins(std::string_view text, PinFlags& pins);

}  // namespace tallybrook
