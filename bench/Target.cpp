#include "Target.h"

#include <algorithm>

#include <fmt/format.h>

namespace tallybrook::bench {

namespace {

constexpr std::size_t kMiddle = 1;

bool isWithin(const Pair& pair, double times) {
    return pair.limit && *pair.program <= times * *pair.limit;
}

/// Whether that can be said of each size that was measured.
template <typename Holds>
std::function<bool(const Pairs&)> inAllSizes(Holds holds) {
    return [holds](const Pairs& pairs) {
        return std::ranges::all_of(pairs, [&](const Pair& pair) { return !pair.program || holds(pair); });
    };
}

}  // namespace

Target within(double times) {
    return {fmt::format("≤ {} × limit", times),
            [times](const Pairs& pairs) { return isWithin(pairs[kMiddle], times); }};
}

Target alwaysWithin(double times) {
    return {fmt::format("≤ {} × limit, all sizes", times),
            inAllSizes([times](const Pair& pair) { return isWithin(pair, times); })};
}

Target sameInAllSizes() {
    return {"same in all sizes", [](const Pairs& pairs) {
                return inAllSizes([most = 1.2 * *pairs.front().program](const Pair& pair) {
                    return *pair.program <= most;
                })(pairs);
            }};
}

Target atMost(double most) {
    return {fmt::format("≤ {}", most),
            inAllSizes([most](const Pair& pair) { return *pair.program <= most; })};
}

Target both(const Target& one, const Target& other) {
    return {one.words + ", " + other.words,
            [one, other](const Pairs& pairs) { return one.isMet(pairs) && other.isMet(pairs); }};
}

Target none() {
    return {};
}

}  // namespace tallybrook::bench
