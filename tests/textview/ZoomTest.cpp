#include "textview/Zoom.h"

#include <limits>
#include <vector>

#include <gtest/gtest.h>

namespace tallybrook::test {

TEST(Zoom, GoesStepByStep) {
    EXPECT_EQ(Zoom().percent(), 100);
    EXPECT_EQ(Zoom().stepped(1).percent(), 110);
    EXPECT_EQ(Zoom().stepped(-1).percent(), 90);
    EXPECT_EQ(Zoom().stepped(2).stepped(-2).percent(), 100);
    EXPECT_EQ(Zoom().stepped(0).percent(), 100);
}

TEST(Zoom, HasSoManySteps) {
    std::vector<int> steps{Zoom(0).percent()};
    for (Zoom zoom(0); zoom.stepped(1).percent() != zoom.percent(); zoom = zoom.stepped(1))
        steps.push_back(zoom.stepped(1).percent());
    EXPECT_EQ(steps, (std::vector{50, 60, 70, 80, 90, 100, 110, 125, 150, 175, 200, 250, 300, 400}));
}

TEST(Zoom, EndsAtItsLastSteps) {
    EXPECT_EQ(Zoom().stepped(std::numeric_limits<int>::max()).percent(), 400);
    EXPECT_EQ(Zoom().stepped(std::numeric_limits<int>::min()).percent(), 50);
    EXPECT_EQ(Zoom(400).stepped(1).percent(), 400);
    EXPECT_EQ(Zoom(50).stepped(-1).percent(), 50);
}

TEST(Zoom, TakesTheNearestStep) {
    EXPECT_EQ(Zoom(125).percent(), 125);
    EXPECT_EQ(Zoom(130).percent(), 125);
    EXPECT_EQ(Zoom(0).percent(), 50);
    EXPECT_EQ(Zoom(std::numeric_limits<int>::min()).percent(), 50);
    EXPECT_EQ(Zoom(std::numeric_limits<int>::max()).percent(), 400);
}

}  // namespace tallybrook::test
