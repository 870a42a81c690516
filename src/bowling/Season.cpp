#include "bowling/Season.h"

#include <fmt/format.h>

namespace tallybrook {

std::string nameOf(Season season) {
    constexpr int kCentury = 100;
    if (season.isSummer)
        return fmt::format("Summer {}", season.year);
    return fmt::format("{}/{:02}", season.year, (season.year + 1) % kCentury);
}

}  // namespace tallybrook
