#include "figures/Comparison.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

/// Everything that is compared, a line for each thing: its counts in all seasons, and what its misses cost.
std::string told(const std::vector<ComparedShare>& shares) {
    std::string text;
    for (const ComparedShare& share : shares) {
        text += share.name + ":";
        for (const Proportion& season : share.seasons)
            text += " " + std::to_string(season.made) + "/" + std::to_string(season.attempts);
        text += ", lost " + std::to_string(share.lost) + "\n";
    }
    return text;
}

const SeasonRecord kFirst{
    {1200, 8}, {{"Strikes", {20, 80}}}, {{"10", {4, 9}}, {"7", {5, 6}}, {"2-8", {0, 1}}}, 9};
const SeasonRecord kLast{{1400, 8},
                         {{"Strikes", {24, 80}}, {"Spares", {30, 56}}},
                         {{"5", {1, 3}}, {"7", {2, 7}}, {"10", {3, 8}}},
                         8};

}  // namespace

TEST(ComparisonTest, HasEachThingOnceWithItsCountsInAllSeasons) {
    const Comparison comparison = compared({kFirst, kLast});
    EXPECT_EQ(told(comparison.shares), "Strikes: 20/80 24/80, lost 0\nSpares: 0/0 30/56, lost 0\n");
    ASSERT_EQ(comparison.totals.size(), 2U);
    EXPECT_DOUBLE_EQ(comparison.totals[0].average(), 150);
    EXPECT_DOUBLE_EQ(comparison.totals[1].average(), 175);
}

/// A miss costs at least a pin and the first ball that would have counted once more.
TEST(ComparisonTest, LeavesThatCostMostInTheLastSeasonComeFirst) {
    EXPECT_EQ(told(compared({kFirst, kLast}).leaves),
              "10: 4/9 3/8, lost 45\n7: 5/6 2/7, lost 45\n5: 0/0 1/3, lost 18\n2-8: 0/1 0/0, lost 0\n");
    SeasonRecord untold = kLast;
    untold.firstBallAverage.reset();
    EXPECT_EQ(told(compared({kFirst, untold}).leaves),
              "10: 4/9 3/8, lost 5\n7: 5/6 2/7, lost 5\n5: 0/0 1/3, lost 2\n2-8: 0/1 0/0, lost 0\n");
}

TEST(ComparisonTest, WhatALeaveCostBeforeDoesNotMoveIt) {
    SeasonRecord first = kFirst;
    SeasonRecord last = kLast;
    first.leaves.push_back({"3-10", {0, 20}});
    last.leaves.push_back({"3-10", {9, 10}});
    EXPECT_EQ(told(compared({first, last}).leaves),
              "10: 4/9 3/8, lost 45\n7: 5/6 2/7, lost 45\n5: 0/0 1/3, lost 18\n3-10: 0/20 9/10, lost 9\n"
              "2-8: 0/1 0/0, lost 0\n");
}

TEST(ComparisonTest, ChangeIsThatOfTheLastTwoSeasons) {
    const ComparedShare strikes = compared({kLast, kFirst, kLast}).shares.front();
    EXPECT_EQ(strikes.before(), (Proportion{20, 80}));
    EXPECT_EQ(strikes.last(), (Proportion{24, 80}));
    EXPECT_NEAR(strikes.change(), 0.05, 1e-12);
    EXPECT_EQ(strikes.chance(), Chance::MayBe);
}

}  // namespace tallybrook::test
