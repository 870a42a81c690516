#include "bowling/PinString.h"

#include "runtime/TextForms.h"

#include <algorithm>

namespace tallybrook {

bool& PinFlags::operator()(Int16 pin) {
    if (pin < 1 || pin > kPins)
        throw RunTimeError(error::kSubscriptOutOfRange);
    return flags_[static_cast<std::size_t>(pin.value() - 1)];
}

int PinFlags::count() const {
    return static_cast<int>(std::ranges::count(flags_, true));
}

std::string pinString(PinFlags pins) {
    std::string joined;
    for (int pin = 1; pin <= kPins; ++pin) {
        if (!pins(pin))
            continue;
        if (!joined.empty())
            joined += '-';
        joined += std::to_string(pin);
    }
    return joined;
}

void markPins(std::string_view text, PinFlags& pins) {
    std::string number;
    const auto mark = [&] {
        const double pin = leadingNumber(number);
        pins(pin >= 1 && pin <= kPins ? toInt16(pin) : Int16(0)) = true;
        number.clear();
    };
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool last = at + 1 == text.size();
        if (text[at] == '-' && !last) {
            mark();
        } else {
            number += text[at];
            if (last)
                mark();
        }
    }
}

}  // namespace tallybrook
