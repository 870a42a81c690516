#pragma once

#include "figures/BowledEvent.h"
#include "figures/Proportions.h"

#include <optional>

namespace tallybrook {

/// How often something was done, by its name.
struct NamedProportion {
    std::string name;
    Proportion counted;
};

/// What a statistical report tells of a season, as far as it does.
struct SeasonRecord {
    PinsOverGames total;
    std::vector<NamedProportion> shares;  ///< strikes, spares and their like, in their order
    std::vector<NamedProportion> leaves;  ///< how often each was spared
    std::optional<int> firstBallAverage;
};

/// One thing in all seasons.
struct ComparedShare {
    std::string name;
    std::vector<Proportion> seasons;  ///< in the order of the seasons; without attempts where it is not told
    int lost;  ///< the pins that its misses cost in the last season at least; 0 for no leave

    [[nodiscard]] const Proportion& last() const { return seasons.back(); }
    [[nodiscard]] const Proportion& before() const { return *(seasons.end() - 2); }
    /// How the last season differs from the one before, from -1 to 1.
    [[nodiscard]] double change() const { return last().share() - before().share(); }
    [[nodiscard]] Chance chance() const { return chanceOf(before(), last()); }
};

/// Seasons side by side.
struct Comparison {
    std::vector<PinsOverGames> totals;
    std::vector<ComparedShare> shares;
    std::vector<ComparedShare> leaves;  ///< those that cost most pins in the last season first
};

/// Compares two seasons or more.
Comparison compared(const std::vector<SeasonRecord>& seasons);

}  // namespace tallybrook
