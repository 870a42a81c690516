#include "Target.h"

#include <algorithm>

#include <fmt/format.h>

namespace tallybrook::bench {

namespace {

constexpr std::size_t kMiddle = 1;

}  // namespace

Target within(double times) {
    return {fmt::format("≤ {} × limit", times),
            [times](const Pairs& pairs) { return *pairs[kMiddle].program <= times * *pairs[kMiddle].limit; }};
}

Target sameInAllSizes() {
    return {"same in all sizes", [](const Pairs& pairs) {
                return std::ranges::all_of(pairs, [most = 1.2 * *pairs.front().program](const Pair& pair) {
                    return *pair.program <= most;
                });
            }};
}

Target below(double most) {
    return {fmt::format("< {}", most), [most](const Pairs& pairs) { return *pairs[kMiddle].program < most; }};
}

Target atMost(double most) {
    return {fmt::format("≤ {}", most), [most](const Pairs& pairs) {
                return std::ranges::all_of(pairs, [most](const Pair& pair) { return *pair.program <= most; });
            }};
}

Target both(const Target& one, const Target& other) {
    return {one.words + ", " + other.words,
            [one, other](const Pairs& pairs) { return one.isMet(pairs) && other.isMet(pairs); }};
}

Target none() {
    return {};
}

}  // namespace tallybrook::bench
