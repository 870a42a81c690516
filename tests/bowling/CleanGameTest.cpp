#include "bowling/CleanGame.h"
#include "bowling/RunningScores.h"

#include <numeric>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace tallybrook::test {

namespace {

/// A random frame as it can be bowled.
std::string randomCell(std::size_t frame) {
    const auto ball = [](int standing) { return *rc::gen::inRange(0, standing + 1); };
    const auto rack = [&](bool isShort) -> std::string {
        const int first = ball(10);
        if (first == 10)
            return "X";
        if (isShort)
            return std::to_string(first);
        const int second = ball(10 - first);
        return std::to_string(first) + (first + second == 10 ? "/" : std::to_string(second));
    };
    std::string cell = rack(false);
    if (frame < kFrames - 1)
        return cell;
    if (cell == "X")
        cell += rack(false);
    if (cell == "XX" || (cell.size() == 2 && cell[1] == '/'))
        cell += rack(true);
    return cell;
}

Cells randomGame() {
    Cells cells;
    for (std::size_t frame = 0; frame < kFrames; ++frame)
        cells[frame] = randomCell(frame);
    return cells;
}

/// The score of a game by counting its balls one by one.
int scoreBall(const Cells& cells) {
    std::vector<int> balls;
    std::vector<std::size_t> begins;
    for (const std::string& cell : cells) {
        begins.push_back(balls.size());
        int standing = 10;
        for (const char mark : cell) {
            const int down = mark == 'X' ? 10 : mark == '/' ? standing : mark - '0';
            balls.push_back(down);
            standing = standing == down || mark == '/' ? 10 : standing - down;
        }
    }
    balls.resize(balls.size() + 2);
    int score = 0;
    for (const std::size_t at : begins) {
        const bool isMarked = balls[at] == 10 || balls[at] + balls[at + 1] == 10;
        score += balls[at] + balls[at + 1] + (isMarked ? balls[at + 2] : 0);
    }
    return score;
}

}  // namespace

TEST(CleanGame, OpenFrameCostsItsPinsAndTheNextBall) {
    const auto costs = costsOf({"81", "72", "X", "X", "X", "X", "X", "X", "X", "XXX"});
    ASSERT_TRUE(costs);
    EXPECT_EQ(costs->lost[0], 1 + 7);
    EXPECT_EQ(costs->lost[1], 1 + 10);
    EXPECT_EQ(costs->lost[2], 0);
    EXPECT_EQ(costs->score, 9 + 9 + 7 * 30 + 30);
    EXPECT_EQ(costs->cleanScore(), costs->score + 8 + 11);
}

TEST(CleanGame, StrikeBeforeItLosesTheSamePins) {
    const auto costs = costsOf({"X", "62", "9/", "9/", "9/", "9/", "9/", "9/", "9/", "9/9"});
    ASSERT_TRUE(costs);
    EXPECT_EQ(costs->lost[1], 2 + 2 + 9);
}

TEST(CleanGame, TenthFrameEarnsNoBallThatNobodyBowled) {
    Cells cells;
    cells.fill("9/");
    cells.back() = "72";
    EXPECT_EQ(costsOf(cells)->lost.back(), 1);
    cells.back() = "X72";
    EXPECT_EQ(costsOf(cells)->lost.back(), 1);
    cells.back() = "XX7";
    EXPECT_EQ(costsOf(cells)->lost.back(), 0);
    cells.back() = "7/2";
    EXPECT_EQ(costsOf(cells)->lost.back(), 0);
}

TEST(CleanGame, OpenFrameBecomesASpareWithNoPinBehindIt) {
    EXPECT_EQ(cleanCell(0, "72"), "7/");
    EXPECT_EQ(cleanCell(9, "72"), "7/0");
    EXPECT_EQ(cleanCell(9, "X72"), "X7/");
    EXPECT_EQ(cleanCell(9, "XX7"), "XX7");
}

TEST(CleanGame, UnfinishedGameHasNone) {
    EXPECT_FALSE(costsOf({}));
    EXPECT_FALSE(costsOf({"81", "81", "81"}));
    EXPECT_FALSE(costsOf({"81", "81", "81", "81", "81", "81", "81", "81", "81", "9/"}));
    EXPECT_FALSE(costsOf({"81", "81", "95", "81", "81", "81", "81", "81", "81", "81"}));
}

RC_GTEST_PROP(CleanGame, CostsAddUpToTheCleanGame, ()) {
    const Cells cells = randomGame();
    const auto costs = costsOf(cells);
    RC_ASSERT(costs.has_value());
    Cells clean = cells;
    for (std::size_t frame = 0; frame < kFrames; ++frame)
        clean[frame] = cleanCell(frame, cells[frame]);
    RC_ASSERT(costs->score == scoreBall(cells));
    RC_ASSERT(costs->cleanScore() == scoreBall(clean));
    for (std::size_t frame = 0; frame < kFrames; ++frame)
        RC_ASSERT(isOpen(frame, cells[frame]) == (costs->lost[frame] > 0));
}

}  // namespace tallybrook::test
