#pragma once

#include "bowling/Pins.h"

namespace tallybrook::test {

/// The pins whose bits are set, pin 1 in the lowest: all sets of pins are those of 0 to 1023.
inline Pins pinsOfBits(unsigned bits) {
    Pins pins;
    for (int pin = 1; pin <= kPins; ++pin) {
        if ((bits >> static_cast<unsigned>(pin - 1) & 1U) != 0)
            pins.add(pin);
    }
    return pins;
}

}  // namespace tallybrook::test
