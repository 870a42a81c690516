#include "figures/Proportions.h"

#include <cmath>
#include <utility>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace tallybrook::test {

namespace {

Proportion randomProportion() {
    const int attempts = *rc::gen::inRange(1, 200);
    return {*rc::gen::inRange(0, attempts + 1), attempts};
}

}  // namespace

TEST(ProportionsTest, IntervalsAreThoseOfTheTables) {
    // Worked out by hand: (p + z2/2n -+ z sqrt(p(1-p)/n + z2/4n2)) / (1 + z2/n) with z = 1.644854.
    EXPECT_NEAR(intervalOf({24, 40}).low, 0.47017, 1e-4);
    EXPECT_NEAR(intervalOf({24, 40}).high, 0.71713, 1e-4);
    EXPECT_NEAR(intervalOf({15, 38}).low, 0.27551, 1e-4);
    EXPECT_NEAR(intervalOf({15, 38}).high, 0.52795, 1e-4);
    EXPECT_NEAR(differenceOf({15, 38}, {24, 40}).low, 0.01926, 1e-3);
}

TEST(ProportionsTest, TellsWhatIsMoreThanChance) {
    EXPECT_EQ(chanceOf({24, 40}, {15, 38}), Chance::Improbable);
    EXPECT_EQ(chanceOf({24, 40}, {20, 38}), Chance::MayBe);
    EXPECT_EQ(chanceOf({2, 2}, {0, 4}), Chance::TooFew);
    EXPECT_EQ(chanceOf({0, 0}, {3, 3}), Chance::TooFew);
    EXPECT_EQ(chanceOf({3, 3}, {0, 0}), Chance::TooFew);
    EXPECT_EQ(chanceOf({5, 5}, {0, 5}), Chance::Improbable);
    EXPECT_EQ(chanceOf({4, 4}, {0, 5}), Chance::TooFew);
    EXPECT_EQ(chanceOf({5, 5}, {0, 4}), Chance::TooFew);
    EXPECT_EQ(chanceOf({3, 6}, {3, 6}), Chance::MayBe);
}

TEST(ProportionsTest, NoAttemptsTellNothing) {
    EXPECT_EQ(Proportion().share(), 0);
    EXPECT_EQ(intervalOf({0, 0}).low, 0);
    EXPECT_EQ(intervalOf({0, 0}).high, 1);
}

TEST(ProportionsTest, IntervalHoldsItsEnds) {
    const Interval interval{0.25, 0.75};
    for (const auto& [value, isHeld] : {std::pair{0.25, true}, {0.75, true}, {0.2, false}, {0.8, false}})
        EXPECT_EQ(interval.holds(value), isHeld) << value;
}

RC_GTEST_PROP(ProportionsTest, IntervalHoldsTheShareAndLiesWithin, ()) {
    const Proportion one = randomProportion();
    const Interval interval = intervalOf(one);
    RC_ASSERT(interval.low > -1e-12 && interval.high < 1 + 1e-12);
    RC_ASSERT(interval.low <= one.share() + 1e-12 && one.share() <= interval.high + 1e-12);
}

/// The bounds of the score interval are the shares from which the count is just as far as the quantile.
RC_GTEST_PROP(ProportionsTest, BoundsAreAQuantileAway, ()) {
    const Proportion one = randomProportion();
    for (const double bound : {intervalOf(one).low, intervalOf(one).high}) {
        const double spread = std::sqrt(bound * (1 - bound) / one.attempts);
        RC_ASSERT(std::abs(std::abs(one.share() - bound) - 1.6448536269514722 * spread) < 1e-6);
    }
}

RC_GTEST_PROP(ProportionsTest, DifferenceTurnsWithItsSides, ()) {
    const Proportion first = randomProportion();
    const Proportion second = randomProportion();
    const Interval there = differenceOf(first, second);
    const Interval back = differenceOf(second, first);
    RC_ASSERT(std::abs(there.low + back.high) < 1e-12 && std::abs(there.high + back.low) < 1e-12);
    RC_ASSERT(chanceOf(first, second) == chanceOf(second, first));
    RC_ASSERT(there.holds(second.share() - first.share()));
}

}  // namespace tallybrook::test
