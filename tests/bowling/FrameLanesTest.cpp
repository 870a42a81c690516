#include "bowling/FrameLanes.h"

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

TEST(FrameLanes, TakeALaneOfThePair) {
    FrameLanes lanes{.pair = pairOf(5), .current = 0, .next = 0};
    for (const double lane : {0.0, 4.0, 7.0, 5.5}) {
        EXPECT_FALSE(lanes.enter(lane)) << lane;
        EXPECT_EQ(lanes.current, Int16(0));
    }
    EXPECT_TRUE(lanes.enter(6));
    EXPECT_EQ(lanes.current, Int16(6));
    EXPECT_TRUE(lanes.enter(5));
    EXPECT_EQ(lanes.current, Int16(5));
}

TEST(FrameLanes, AlternateUpToTheTenthFrame) {
    FrameLanes lanes{.pair = pairOf(5), .current = 6, .next = 0};
    lanes.workOutNext(5, true, false);
    EXPECT_EQ(lanes.next, Int16(5));
    lanes.current = 5;
    lanes.workOutNext(5, true, false);
    EXPECT_EQ(lanes.next, Int16(6));
    lanes.workOutNext(5, true, true);
    EXPECT_EQ(lanes.next, Int16(5));
    lanes.current = 9;  // not of the pair
    for (const Int16 before : {lanes.pair.left, lanes.pair.right}) {
        lanes.next = before;
        lanes.workOutNext(5, true, false);
        EXPECT_EQ(lanes.next, before);
    }
    lanes.workOutNext(5, true, true);
    EXPECT_EQ(lanes.next, Int16(9));
}

TEST(FrameLanes, StayWhereTheGameBegan) {
    FrameLanes lanes{.pair = pairOf(5), .current = 6, .next = 0};
    for (const bool isTenth : {false, true}) {
        lanes.workOutNext(5, false, isTenth);
        EXPECT_EQ(lanes.next, Int16(5));
    }
}

}  // namespace

}  // namespace tallybrook::test
