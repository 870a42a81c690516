#include "bowling/FrameCheck.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace tallybrook {

namespace {

struct CellCase {
    int frame;
    std::string cell;
    Verdict verdict;
    std::string becomes;
};

TEST(LineScore, IsCheckedCharacterByCharacter) {
    const std::vector<CellCase> cases{
        {1, "X", Verdict::Good, "X"},
        {9, "9/", Verdict::Good, "9/"},
        {1, "80", Verdict::Good, "80"},
        {1, "72", Verdict::Good, "72"},
        {1, "5", Verdict::Good, "5"},
        {1, "5-", Verdict::Good, "5-"},
        {1, "5x", Verdict::Good, "5x"},
        {5, "X9", Verdict::Good, "X"},
        {1, "X5", Verdict::Good, "X"},
        {1, "/9", Verdict::FirstCount, "/9"},
        {1, "-5", Verdict::FirstCount, "-5"},
        {1, "x", Verdict::FirstCount, "x"},
        {1, "9X", Verdict::SecondCount, "9X"},
        {1, "55", Verdict::FrameMismatch, "55"},
        {1, "54", Verdict::Good, "54"},
        {1, "", Verdict::FirstCount, ""},
        {1, "5\u00e9", Verdict::Good, "5\u00e9"},
        {10, "XXX", Verdict::Good, "XXX"},
        {10, "XX7", Verdict::Good, "XX7"},
        {10, "X7/", Verdict::Good, "X7/"},
        {10, "X72", Verdict::Good, "X72"},
        {10, "X", Verdict::Good, "X"},
        {10, "XX", Verdict::Good, "XX"},
        {10, "9/", Verdict::Good, "9/"},
        {10, "X55", Verdict::FrameMismatch, "X55"},
        {10, "X/", Verdict::SecondCount, "X/"},
        {10, "XX/", Verdict::FrameMismatch, "XX/"},
        {10, "9/X", Verdict::Good, "9/X"},
        {10, "9/5", Verdict::Good, "9/5"},
        {10, "9//", Verdict::FrameMismatch, "9//"},
        {10, "72", Verdict::Good, "72"},
        {10, "725", Verdict::Good, "725"},
        {10, "72/", Verdict::Good, "72/"},
        {10, "72X", Verdict::FillCount, "72X"},
        {10, "9X", Verdict::SecondCount, "9X"},
        {10, "X7x", Verdict::Good, "X7x"},
        {10, "", Verdict::FirstCount, ""},
    };
    for (const CellCase& one : cases) {
        const CellCheck check = checkLineScore(one.frame, one.cell);
        EXPECT_EQ(check.verdict, one.verdict) << one.cell << " in frame " << one.frame;
        EXPECT_EQ(check.cell, one.becomes) << one.cell << " in frame " << one.frame;
    }
}

TEST(Pinfall, RequiresTheBallsOfAFrame) {
    struct Case {
        int frame;
        std::string first, second, fill;
        Verdict verdict;
    };
    const std::vector<Case> cases{
        {1, "", "", "", Verdict::FirstPinfall},    {1, "7", "", "", Verdict::SecondPinfall},
        {1, "X", "", "", Verdict::Good},           {1, "7", "/", "", Verdict::Good},
        {1, "X", "7", "", Verdict::Good},          {10, "X", "", "", Verdict::SecondPinfall},
        {10, "7", "", "", Verdict::SecondPinfall}, {10, "X", "X", "", Verdict::FillPinfall},
        {10, "7", "/", "", Verdict::FillPinfall},  {10, "X", "7", "", Verdict::Good},
        {10, "7", "7", "", Verdict::Good},         {10, "X", "X", "X", Verdict::Good},
    };
    for (const Case& one : cases)
        EXPECT_EQ(checkPinfall(one.frame, one.first, one.second, one.fill), one.verdict)
            << one.frame << ": " << one.first << ", " << one.second << ", " << one.fill;
}

}  // namespace

}  // namespace tallybrook
