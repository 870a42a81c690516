#include "figures/FrameCosts.h"

#include <algorithm>

namespace tallybrook {

namespace {

LeaveCost& costOf(const std::string& leave, std::vector<LeaveCost>& all) {
    const auto known = std::ranges::find(all, leave, &LeaveCost::leave);
    return known != all.end() ? *known : all.emplace_back(LeaveCost{leave});
}

void addGame(const RecordedGame& game, const GameCosts& costs, std::vector<LeaveCost>& all) {
    for (std::size_t frame = 0; frame < kFrames; ++frame) {
        if (costs.lost[frame] == 0)
            continue;
        LeaveCost& cost = costOf(game.leaves[frame], all);
        ++cost.frames;
        cost.pins += costs.lost[frame];
    }
}

}  // namespace

std::vector<LeaveCost> leaveCosts(const std::vector<RecordedGame>& games) {
    std::vector<LeaveCost> all;
    for (const RecordedGame& game : games) {
        if (const auto costs = costsOf(game.cells))
            addGame(game, *costs, all);
    }
    std::ranges::stable_sort(all, std::ranges::greater(), &LeaveCost::pins);
    return all;
}

}  // namespace tallybrook
