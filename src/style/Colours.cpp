#include "style/Colours.h"

#include <algorithm>
#include <cmath>

namespace tallybrook {

namespace {

/// How bright a colour is to the eye, from 0 to 1.
double luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

}  // namespace

QColor between(const QColor& first, const QColor& second, double share) {
    const auto mix = [share](int from, int to) { return static_cast<int>(from + share * (to - from)); };
    return {mix(first.red(), second.red()), mix(first.green(), second.green()),
            mix(first.blue(), second.blue())};
}

double contrast(const QColor& first, const QColor& second) {
    const auto [darker, brighter] = std::minmax({luminance(first), luminance(second)});
    constexpr double kGlare = 0.05;
    return (brighter + kGlare) / (darker + kGlare);
}

}  // namespace tallybrook
