#include "desktop/Colours.h"

namespace tallybrook {

QColor between(const QColor& first, const QColor& second, double share) {
    const auto mix = [share](int from, int to) { return static_cast<int>(from + share * (to - from)); };
    return {mix(first.red(), second.red()), mix(first.green(), second.green()),
            mix(first.blue(), second.blue())};
}

}  // namespace tallybrook
