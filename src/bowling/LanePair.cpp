#include "bowling/LanePair.h"

#include "runtime/TextForms.h"

namespace tallybrook {

namespace {

bool isOdd(Int16 lane) {
    return lane.value() % 2 != 0;
}

}  // namespace

std::optional<Int16> LanePair::beside(Int16 lane) const {
    if (lane == left)
        return right;
    return lane == right ? std::optional(left) : std::nullopt;
}

LanePair pairOf(Int16 lane) {
    return isOdd(lane) ? LanePair{lane, lane + 1} : LanePair{lane - 1, lane};
}

std::string text(const LanePair& pair) {
    return text(pair.left) + "-" + text(pair.right);
}

bool isLanePair(std::string_view text) {
    const std::size_t dash = text.find('-');
    if (dash == std::string_view::npos)
        return false;
    const Int16 left = toInt16(leadingNumber(text.substr(0, dash)));
    const Int16 right = toInt16(leadingNumber(text.substr(dash + 1)));
    return isOdd(left) && !isOdd(right) && right - left == 1;
}

}  // namespace tallybrook
