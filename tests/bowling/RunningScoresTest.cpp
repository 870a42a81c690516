#include "bowling/RunningScores.h"

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace tallybrook::test {

namespace {

int total(const Cells& cells) {
    return runningScores(cells).back().value();
}

TEST(Score, KnowsTheClassicGames) {
    const Cells strikes{"X", "X", "X", "X", "X", "X", "X", "X", "X", "XXX"};
    const auto perfect = runningScores(strikes);
    for (int frame = 0; frame < kFrames; ++frame)
        EXPECT_EQ(perfect[static_cast<std::size_t>(frame)], Int16((frame + 1) * 30));
    EXPECT_EQ(total({"5/", "5/", "5/", "5/", "5/", "5/", "5/", "5/", "5/", "5/5"}), 150);
    EXPECT_EQ(total({"00", "00", "00", "00", "00", "00", "00", "00", "00", "00"}), 0);
    EXPECT_EQ(total({}), 0);
}

TEST(Score, CountsEachFrameByItsPattern) {
    struct Case {
        std::string eighth, ninth, tenth;
        int addsEighth, addsNinth, addsTenth;
    };
    const std::vector<Case> cases{
        {"7", "5-", "7x", 7, 5, 7},    {"9/", "72", "72", 17, 9, 9},   {"9/", "X", "X72", 20, 27, 19},
        {"X", "72", "XX8", 19, 9, 28}, {"X", "7/", "X7/", 20, 20, 20}, {"X", "X", "72", 27, 19, 9},
        {"X", "X", "XXX", 30, 30, 30}, {"X", "X", "7/X", 27, 20, 20},  {"72", "X", "X7", 9, 27, 17},
        {"72", "X", "7/5", 9, 20, 15}, {"72", "X", "X", 9, 20, 10},    {"72", "9/", "X", 9, 20, 10},
        {"72", "9/", "725", 9, 17, 9}, {"72", "X", "XX", 9, 30, 20},
    };
    for (const Case& one : cases) {
        Cells cells;
        cells[7] = one.eighth;
        cells[8] = one.ninth;
        cells[9] = one.tenth;
        const auto scores = runningScores(cells);
        EXPECT_EQ(scores[7], Int16(one.addsEighth)) << one.eighth << " " << one.ninth << " " << one.tenth;
        EXPECT_EQ(scores[8] - scores[7], Int16(one.addsNinth)) << one.ninth << " " << one.tenth;
        EXPECT_EQ(scores[9] - scores[8], Int16(one.addsTenth)) << one.tenth;
    }
}

/// The cells of a text, with a blank between them.
Cells cellsOf(const std::string& text) {
    Cells cells;
    std::istringstream words(text);
    for (std::string& cell : cells)
        std::getline(words, cell, ' ');
    return cells;
}

/// The scores as far as they are settled.
std::vector<int> settled(const std::string& text) {
    std::vector<int> known;
    for (const std::optional<int>& score : settledScores(cellsOf(text))) {
        if (score)
            known.push_back(*score);
    }
    return known;
}

using Scores = std::vector<int>;

/// The marks of a rack that is bowled at twice, or once for a strike.
std::string rack() {
    const int first = *rc::gen::inRange(0, 11);
    if (first == 10)
        return "X";
    const int second = *rc::gen::inRange(0, 11 - first);
    return std::to_string(first) + (first + second == 10 ? "/" : std::to_string(second));
}

std::string tenthFrame() {
    const std::string first = rack();
    if (first == "X") {
        const std::string next = rack();
        return next == "X" ? "XX" + rack().substr(0, 1) : "X" + next;
    }
    return first.ends_with('/') ? first + rack().substr(0, 1) : first;
}

/// The pins of each ball of a whole game in a row.
std::vector<int> ballsOf(const Cells& cells) {
    std::vector<int> balls;
    for (const std::string& cell : cells) {
        for (const char mark : cell)
            balls.push_back(mark == 'X' ? 10 : mark == '/' ? 10 - balls.back() : mark - '0');
    }
    return balls;
}

}  // namespace

TEST(SettledScores, CountsBallsAsOnPaper) {
    EXPECT_EQ(settled("81 0/ 8/ 90 9/ 80 09 90 90 90"), (Scores{9, 27, 46, 55, 73, 81, 90, 99, 108, 117}));
    EXPECT_EQ(settled("X X X X X X X X X XXX"), (Scores{30, 60, 90, 120, 150, 180, 210, 240, 270, 300}));
    EXPECT_EQ(settled("9/ 9/ 9/ 9/ 9/ 9/ 9/ 9/ 9/ 9/9"),
              (Scores{19, 38, 57, 76, 95, 114, 133, 152, 171, 190}));
    EXPECT_EQ(settled("00 00 00 00 00 00 00 00 X X8/"), (Scores{0, 0, 0, 0, 0, 0, 0, 0, 28, 48}));
}

TEST(SettledScores, WaitsForTheBallsThatCount) {
    EXPECT_EQ(settled("81 X X"), (Scores{9}));
    EXPECT_EQ(settled("81 9/"), (Scores{9}));
    EXPECT_EQ(settled("81 9/ 7"), (Scores{9, 26}));
    EXPECT_EQ(settled("X 4"), Scores{});
    EXPECT_EQ(settled("X X X"), (Scores{30}));
    EXPECT_EQ(settled("00 00 00 00 00 00 00 00 00 X8").size(), 9U);
    EXPECT_EQ(settled(""), Scores{});
}

TEST(SettledScores, BallLeftOutBeforeAnotherFrameCountsNothing) {
    EXPECT_EQ(settled("9 81"), (Scores{9, 18}));
    EXPECT_EQ(settled("9/ 8 X"), (Scores{18, 26}));
}

TEST(SettledScores, EndsBeforeWhatIsNoMark) {
    for (const char* const cell : {"", "x", "88", "/", "X1", "812", "9X", "-", "9-", "\u0669", "99999999999"})
        EXPECT_EQ(settled(std::string("81 ") + cell + " 81 81"), (Scores{9})) << cell;
    for (const char* const cell : {"812", "X/", "9/5/", "XX/", "X8X", "XXXX"})
        EXPECT_EQ(settled(std::string("00 00 00 00 00 00 00 00 00 ") + cell).size(), 9U) << cell;
}

RC_GTEST_PROP(Score, OfAWholeGameIsTheSumOfItsBalls, ()) {
    Cells cells;
    for (std::size_t frame = 0; frame < kFrames; ++frame)
        cells[frame] = frame == kFrames - 1 ? tenthFrame() : rack();
    const std::vector<int> balls = ballsOf(cells);
    const auto scores = runningScores(cells);
    const auto settled = settledScores(cells);
    int score = 0;
    std::size_t first = 0;
    for (std::size_t frame = 0; frame < kFrames; ++frame) {
        const bool isMarked = cells[frame].find_first_of("X/") != std::string::npos;
        for (std::size_t ball = first; ball < first + (isMarked ? 3 : 2); ++ball)
            score += balls[ball];
        first += cells[frame].size();
        RC_ASSERT(scores[frame].value() == score);
        RC_ASSERT(settled[frame] == score);
    }
}

}  // namespace tallybrook::test
