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

QColor onWindowAndBox(const QColor& colour, const QPalette& palette) {
    const QColor onWindow =
        contrasting(colour, palette.color(QPalette::Active, QPalette::Window), kShapeContrast);
    return contrasting(onWindow, palette.color(QPalette::Active, QPalette::Base), kShapeContrast);
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

QColor contrasting(const QColor& colour, const QColor& ground, double wanted) {
    constexpr int kSteps = 50;
    const QColor end = contrast(Qt::black, ground) > contrast(Qt::white, ground) ? Qt::black : Qt::white;
    QColor found = colour;
    for (int step = 1; step <= kSteps && contrast(found, ground) < wanted; ++step)
        found = between(colour, end, static_cast<double>(step) / kSteps);
    return found;
}

QColor outlineColour(const QPalette& palette) {
    constexpr double kFaint = 0.6;
    return onWindowAndBox(between(palette.color(QPalette::Active, QPalette::WindowText),
                                  palette.color(QPalette::Active, QPalette::Window), kFaint),
                          palette);
}

QColor focusColour(const QPalette& palette) {
    return onWindowAndBox(palette.color(QPalette::Active, QPalette::Highlight), palette);
}

}  // namespace tallybrook
