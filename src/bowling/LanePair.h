#pragma once

#include <string_view>

namespace tallybrook {

/// Whether a text names a pair of lanes: an odd left lane, "-", and the lane after it, as in "5-6". Each lane
/// is read as the number that its text begins with, rounded; error 6 where it does not fit 16 bits.
bool isLanePair(std::string_view text);

}  // namespace tallybrook
