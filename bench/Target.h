#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>

namespace tallybrook::bench {

/// The sizes of the logbooks, by their events. Targets are told for the middle one where they name no other.
inline constexpr std::array<int, 5> kSizes{1'000, 10'000, 100'000, 300'000, 1'000'000};

/// What was measured in a logbook of one size; nothing where it was not.
struct Pair {
    std::optional<double> program;
    std::optional<double> limit;
};

/// In all sizes, in their order.
using Pairs = std::array<Pair, kSizes.size()>;

/// What is wanted of a figure: in words, and as a test of what was measured, at least in the first two sizes.
struct Target {
    std::string words;
    std::function<bool(const Pairs&)> isMet;
};

/// At most so many times the limit.
Target within(double times);
/// The same in every size.
Target alwaysWithin(double times);
/// In no size more than in the smallest, up to a fifth that is left to the clock.
Target sameInAllSizes();
/// At most that in every size.
Target atMost(double most);
/// Both of them.
Target both(const Target& one, const Target& other);
/// Nothing is wanted: the figure is told for comparison.
Target none();

}  // namespace tallybrook::bench
