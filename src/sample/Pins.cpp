#include "sample/Pins.h"

#include "bowling/PinString.h"

#include <array>

namespace tallybrook::sample {

namespace {

/// The texts of all sets of pins, by their bits.
std::array<std::string, 1U << kPins> allTexts() {
    std::array<std::string, 1U << kPins> texts;
    for (unsigned bits = 0; bits < texts.size(); ++bits) {
        PinFlags flags;
        for (int pin = 1; pin <= kPins; ++pin)
            flags(pin) = (bits >> static_cast<unsigned>(pin - 1) & 1U) != 0;
        texts[bits] = pinString(flags);
    }
    return texts;
}

}  // namespace

const std::string& Pins::text() const {
    static const auto kTexts = allTexts();
    return kTexts[bits_];
}

}  // namespace tallybrook::sample
