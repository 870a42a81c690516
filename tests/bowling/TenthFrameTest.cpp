#include "bowling/TenthFrame.h"

#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

/// A letter for each kind of stored ball: a strike, a spare, pins left, a Null.
const std::map<char, Value> kBalls{{'X', "X"}, {'/', "/"}, {'p', "3-6-10"}, {'e', ""}, {'n', Null{}}};

/// Which letters of the three balls make a kind of tenth frame. No two rows hold for the same balls.
struct Rule {
    std::string first;
    std::string second;
    std::string fill;
    TenthFrame kind;
};
const std::vector<Rule> kRules{
    {"X", "X", "/pe", TenthFrame::TwoStrikes},      {"X", "/pe", "/", TenthFrame::StrikeThenSpare},
    {"/pe", "/", "X", TenthFrame::SpareThenStrike}, {"/pe", "/", "/pe", TenthFrame::SpareThenOther},
    {"/pe", "pe", "pe", TenthFrame::Open},
};

TenthFrame kindOf(char first, char second, char fill) {
    for (const Rule& rule : kRules) {
        if (rule.first.find(first) != std::string::npos && rule.second.find(second) != std::string::npos &&
            rule.fill.find(fill) != std::string::npos)
            return rule.kind;
    }
    return TenthFrame::None;
}

TEST(TenthFrames, AreToldApartByAllBalls) {
    for (const auto& [first, firstValue] : kBalls) {
        for (const auto& [second, secondValue] : kBalls) {
            for (const auto& [fill, fillValue] : kBalls) {
                for (const Value& lineScore : {Value(Null{}), Value(""), Value("XX"), Value("XXX9")}) {
                    EXPECT_EQ(tenthFrameOf({firstValue, secondValue, fillValue, lineScore}),
                              kindOf(first, second, fill))
                        << first << second << fill;
                }
                EXPECT_EQ(tenthFrameOf({firstValue, secondValue, fillValue, "XXX"}),
                          TenthFrame::ThreeStrikes);
            }
        }
    }
}

TEST(TenthFrames, TakeANumberForPinsLeft) {
    EXPECT_EQ(resultOf(std::int64_t{7}), BallResult::PinsLeft);
}

}  // namespace

}  // namespace tallybrook::test
