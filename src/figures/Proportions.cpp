#include "figures/Proportions.h"

#include <cmath>

namespace tallybrook {

namespace {

/// The standard normal quantile for nine cases of ten, both ends together.
constexpr double kQuantile = 1.6448536269514722;

double square(double value) {
    return value * value;
}

}  // namespace

double Proportion::share() const {
    return attempts > 0 ? static_cast<double>(made) / attempts : 0;
}

Interval intervalOf(const Proportion& counted) {
    if (counted.attempts <= 0)
        return {0, 1};
    const double share = counted.share();
    const double weight = square(kQuantile) / counted.attempts;
    const double middle = share + weight / 2;
    const double reach = std::sqrt(weight * (share * (1 - share) + weight / 4));
    return {(middle - reach) / (1 + weight), (middle + reach) / (1 + weight)};
}

Interval differenceOf(const Proportion& first, const Proportion& second) {
    const double before = first.share();
    const double now = second.share();
    const Interval ofFirst = intervalOf(first);
    const Interval ofSecond = intervalOf(second);
    return {now - before - std::hypot(now - ofSecond.low, ofFirst.high - before),
            now - before + std::hypot(ofSecond.high - now, before - ofFirst.low)};
}

Chance chanceOf(const Proportion& first, const Proportion& second) {
    constexpr int kFewest = 5;
    if (first.attempts < kFewest || second.attempts < kFewest)
        return Chance::TooFew;
    return differenceOf(first, second).holds(0) ? Chance::MayBe : Chance::Improbable;
}

}  // namespace tallybrook
