#include "bowling/LanePair.h"

#include "runtime/TextForms.h"

namespace tallybrook {

bool isLanePair(std::string_view text) {
    const std::size_t dash = text.find('-');
    if (dash == std::string_view::npos)
        return false;
    const Int16 left = toInt16(leadingNumber(text.substr(0, dash)));
    const Int16 right = toInt16(leadingNumber(text.substr(dash + 1)));
    return left.value() % 2 != 0 && right.value() % 2 == 0 && right - left == 1;
}

}  // namespace tallybrook
