#include "bowling/PinString.h"
#include "bowling/ScoreCell.h"

#include <gtest/gtest.h>

namespace tallybrook {

namespace {

struct CellCase {
    int frame;
    std::string cell;
    std::string result;
    std::string becomes;
};

TEST(LineScore, IsCheckedCharacterByCharacter) {
    const std::vector<CellCase> cases{
        {1, "X", "Good", "X"},
        {9, "9/", "Good", "9/"},
        {1, "80", "Good", "80"},
        {1, "72", "Good", "72"},
        {1, "5", "Good", "5"},
        {1, "5-", "Good", "5-"},
        {1, "5x", "Good", "5x"},
        {5, "X9", "Good", "X"},
        {1, "X5", "Good", "X"},
        {1, "/9", "First Count", "/9"},
        {1, "-5", "First Count", "-5"},
        {1, "x", "First Count", "x"},
        {1, "9X", "Second Count", "9X"},
        {1, "55", "Frame Mismatch", "55"},
        {1, "54", "Good", "54"},
        {1, "", "First Count", ""},
        {1, "5\u00e9", "Good", "5\u00e9"},
        {10, "XXX", "Good", "XXX"},
        {10, "XX7", "Good", "XX7"},
        {10, "X7/", "Good", "X7/"},
        {10, "X72", "Good", "X72"},
        {10, "X", "Good", "X"},
        {10, "XX", "Good", "XX"},
        {10, "9/", "Good", "9/"},
        {10, "X55", "Frame Mismatch", "X55"},
        {10, "X/", "Second Count", "X/"},
        {10, "XX/", "Frame Mismatch", "XX/"},
        {10, "9/X", "Good", "9/X"},
        {10, "9/5", "Good", "9/5"},
        {10, "9//", "Frame Mismatch", "9//"},
        {10, "72", "Good", "72"},
        {10, "725", "Good", "725"},
        {10, "72/", "Good", "72/"},
        {10, "72X", "Fill Count", "72X"},
        {10, "9X", "Second Count", "9X"},
        {10, "X7x", "Good", "X7x"},
        {10, "", "First Count", ""},
    };
    for (const CellCase& one : cases) {
        const CellCheck check = checkLineScore(one.frame, one.cell);
        EXPECT_EQ(check.result, one.result) << one.cell << " in frame " << one.frame;
        EXPECT_EQ(check.cell, one.becomes) << one.cell << " in frame " << one.frame;
    }
}

TEST(Pinfall, RequiresTheBallsOfAFrame) {
    struct Case {
        int frame;
        std::string first, second, fill, result;
    };
    const std::vector<Case> cases{
        {1, "", "", "", "First Pinfall"},
        {1, "7", "", "", "Second Pinfall"},
        {1, "X", "", "", "Good"},
        {1, "7", "/", "", "Good"},
        {1, "X", "7", "", "Good"},
        {10, "X", "", "", "Second Pinfall"},
        {10, "7", "", "", "Second Pinfall"},
        {10, "X", "X", "", "Fill Pinfall"},
        {10, "7", "/", "", "Fill Pinfall"},
        {10, "X", "7", "", "Good"},
        {10, "7", "7", "", "Good"},
        {10, "X", "X", "X", "Good"},
    };
    for (const Case& one : cases)
        EXPECT_EQ(checkPinfall(one.frame, one.first, one.second, one.fill), one.result)
            << one.frame << ": " << one.first << ", " << one.second << ", " << one.fill;
}

using Cells = std::array<std::string, kFrames>;

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

PinFlags flagged(std::initializer_list<int> pins) {
    PinFlags flags;
    for (const int pin : pins)
        flags(pin) = true;
    return flags;
}

TEST(PinString, NamesThePinsLeftInOrder) {
    EXPECT_EQ(pinString(flagged({})), "");
    EXPECT_EQ(pinString(flagged({7})), "7");
    EXPECT_EQ(pinString(flagged({10})), "10");
    EXPECT_EQ(pinString(flagged({10, 7})), "7-10");
    EXPECT_EQ(pinString(flagged({6, 3, 10})), "3-6-10");
}

TEST(PinString, IsReadBack) {
    for (unsigned mask = 1; mask < 1024; ++mask) {
        PinFlags flags;
        for (int pin = 1; pin <= kPins; ++pin)
            flags(pin) = (mask >> (pin - 1) & 1U) != 0;
        PinFlags read;
        markPins(pinString(flags), read);
        EXPECT_EQ(pinString(read), pinString(flags));
    }
}

TEST(PinString, RefusesNumbersThatAreNoPins) {
    for (const char* text : {"0", "11", "3-11", "a", "3--5", "-3", "99999", "3-99999"}) {
        PinFlags flags;
        try {
            markPins(text, flags);
            ADD_FAILURE() << text << " was taken";
        } catch (const RunTimeError& failure) {
            EXPECT_EQ(failure.number(), error::kSubscriptOutOfRange) << text;
        }
    }
    PinFlags flags;
    EXPECT_THROW(markPins("3-11-5", flags), RunTimeError);
    EXPECT_EQ(pinString(flags), "3");  // what stood before the fault stays marked
}

}  // namespace

}  // namespace tallybrook
