#include "figures/FrameCosts.h"

#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

/// A game whose frames are all alike but the tenth.
RecordedGame gameOf(const std::string& cell, const std::string& tenth, const std::string& leave) {
    RecordedGame game;
    game.cells.fill(cell);
    game.cells.back() = tenth;
    game.leaves.fill(leave);
    return game;
}

using Costs = std::vector<std::tuple<std::string, int, int>>;

Costs costsOf(const std::vector<RecordedGame>& games) {
    Costs costs;
    for (const LeaveCost& cost : leaveCosts(games))
        costs.emplace_back(cost.leave, cost.frames, cost.pins);
    return costs;
}

// Of nines that stay open each would have brought one pin more and the nine of the next frame; the tenth one
// pin.

TEST(FrameCosts, AreThePinsOfTheLeavesThatStayedOpen) {
    RecordedGame game = gameOf("90", "90", "");
    game.leaves[3] = game.leaves[4] = "7-10";
    game.leaves[0] = game.leaves[1] = game.leaves[8] = "10";
    EXPECT_EQ(costsOf({game}), (Costs{{"", 5, 41}, {"10", 3, 30}, {"7-10", 2, 20}}));
    EXPECT_EQ(costsOf({game, game}), (Costs{{"", 10, 82}, {"10", 6, 60}, {"7-10", 4, 40}}));
}

TEST(FrameCosts, OfEqualOnesComeInTheOrderOfTheGames) {
    EXPECT_EQ(costsOf({gameOf("90", "90", "7"), gameOf("90", "90", "10")}),
              (Costs{{"7", 10, 91}, {"10", 10, 91}}));
}

TEST(FrameCosts, AreNoneWhereNothingStayedOpen) {
    EXPECT_EQ(costsOf({gameOf("9/", "9/X", "10"), gameOf("X", "XXX", "")}), Costs{});
}

TEST(FrameCosts, AreNoneOfAGameWithoutASettledScore) {
    EXPECT_EQ(costsOf({gameOf("90", "9", "10"), gameOf("", "", "")}), Costs{});
}

}  // namespace

}  // namespace tallybrook::test
