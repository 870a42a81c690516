#include "bowling/Cell_Count.h"

#include "bowling/Marks.h"
#include "bowling/Pins.h"

#include <algorithm>

namespace tallybrook {

void Cell_Count(std::string_view pins, std::string& result, std::string_view ball) {
    if (pins.empty())
        return;
    if (isMark(pins)) {
        result = pins;
        return;
    }
    const auto standing = std::ranges::count(pins, '-') + 1;
    result = std::to_string(ball == "First" ? kPins - standing : standing);
}

}  // namespace tallybrook
