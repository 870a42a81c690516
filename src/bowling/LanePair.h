#pragma once

#include "runtime/Integer.h"

#include <optional>
#include <string>
#include <string_view>

namespace tallybrook {

/// Two lanes beside each other on which a game is bowled: an odd one, and the next.
struct LanePair {
    Int16 left;
    Int16 right;

    /// The other lane of the pair; nothing for a lane that is not of it.
    [[nodiscard]] std::optional<Int16> beside(Int16 lane) const;
};

/// The pair that a lane belongs to; error 6 where it does not fit 16 bits.
LanePair pairOf(Int16 lane);

/// As in "5-6".
std::string text(const LanePair& pair);

/// Whether a text names a pair of lanes: an odd left lane, "-", and the lane after it, as in "5-6". Each lane
/// is read as the number that its text begins with, rounded; error 6 where it does not fit 16 bits.
bool isLanePair(std::string_view text);

}  // namespace tallybrook
