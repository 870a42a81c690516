#include "figures/Comparison.h"

#include "bowling/CleanGame.h"

#include <algorithm>

namespace tallybrook {

namespace {

using Named = std::vector<NamedProportion> SeasonRecord::*;

Proportion find(const std::vector<NamedProportion>& all, const std::string& name) {
    const auto found = std::ranges::find(all, name, &NamedProportion::name);
    return found == all.end() ? Proportion() : found->counted;
}

/// The names in all seasons, each once, in the order in which they come.
std::vector<std::string> namesIn(const std::vector<SeasonRecord>& seasons, Named named) {
    std::vector<std::string> names;
    for (const SeasonRecord& season : seasons) {
        for (const NamedProportion& one : season.*named) {
            if (std::ranges::find(names, one.name) == names.end())
                names.push_back(one.name);
        }
    }
    return names;
}

std::vector<ComparedShare> sideBySide(const std::vector<SeasonRecord>& seasons, Named named) {
    std::vector<ComparedShare> all;
    for (const std::string& name : namesIn(seasons, named)) {
        ComparedShare share{name, {}, 0};
        for (const SeasonRecord& season : seasons)
            share.seasons.push_back(find(season.*named, name));
        all.push_back(std::move(share));
    }
    return all;
}

int missesOf(const Proportion& counted) {
    return counted.attempts - counted.made;
}

}  // namespace

Comparison compared(const std::vector<SeasonRecord>& seasons) {
    Comparison comparison{
        {}, sideBySide(seasons, &SeasonRecord::shares), sideBySide(seasons, &SeasonRecord::leaves)};
    for (const SeasonRecord& season : seasons)
        comparison.totals.push_back(season.total);
    const int cost = leastCostOfMiss(seasons.back().firstBallAverage.value_or(0));
    for (ComparedShare& leave : comparison.leaves)
        leave.lost = cost * missesOf(leave.last());
    std::ranges::stable_sort(comparison.leaves, std::ranges::greater(), &ComparedShare::lost);
    return comparison;
}

}  // namespace tallybrook
