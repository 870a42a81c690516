// The rules of cells and scores once more, as tables without an order: of every cell exactly one row holds.

#include "Everything.h"
#include "bowling/FrameCheck.h"
#include "bowling/RunningScores.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

/// A cell, and what its balls count: a digit its value, anything else nothing.
struct Sheet {
    explicit Sheet(std::string written) : cell(std::move(written)) {}

    [[nodiscard]] char mark(std::size_t ball) const { return ball <= cell.size() ? cell[ball - 1] : '\0'; }
    [[nodiscard]] bool isStrike(std::size_t ball) const { return mark(ball) == 'X'; }
    [[nodiscard]] bool isSpare(std::size_t ball) const { return mark(ball) == '/'; }
    [[nodiscard]] bool isCount(std::size_t ball) const { return mark(ball) >= '0' && mark(ball) <= '9'; }
    [[nodiscard]] bool isOther(std::size_t ball) const {
        return !isStrike(ball) && !isSpare(ball) && !isCount(ball);
    }
    [[nodiscard]] int pins(std::size_t ball) const { return isCount(ball) ? mark(ball) - '0' : 0; }
    [[nodiscard]] bool is(const std::string& text) const { return cell == text; }
    [[nodiscard]] bool holds(char mark) const { return cell.find(mark) != std::string::npos; }

    std::string cell;
};

using Holds = std::function<bool(const Sheet&)>;

struct CellRule {
    Holds holds;
    Verdict verdict;
};

const std::vector<CellRule> kEarlyCells{
    {[](const Sheet& s) { return s.isSpare(1) || s.isOther(1); }, Verdict::FirstCount},
    {[](const Sheet& s) { return s.isStrike(1); }, Verdict::Good},
    {[](const Sheet& s) { return s.isCount(1) && s.isStrike(2); }, Verdict::SecondCount},
    {[](const Sheet& s) { return s.isCount(1) && s.isCount(2) && s.pins(1) + s.pins(2) > 9; },
     Verdict::FrameMismatch},
    {[](const Sheet& s) { return s.isCount(1) && s.isCount(2) && s.pins(1) + s.pins(2) <= 9; },
     Verdict::Good},
    {[](const Sheet& s) { return s.isCount(1) && (s.isSpare(2) || s.isOther(2)); }, Verdict::Good},
};

/// Whether the first two balls of a tenth frame pass.
bool passesTwo(const Sheet& s) {
    if (s.isStrike(1))
        return !s.isSpare(2);
    return s.isCount(1) && !s.isStrike(2) && s.pins(1) + s.pins(2) <= 9;
}

bool isMarkedTwice(const Sheet& s) {
    return s.isStrike(2) || s.isSpare(2);
}

const std::vector<CellRule> kTenthCells{
    {[](const Sheet& s) { return s.isSpare(1) || s.isOther(1); }, Verdict::FirstCount},
    {[](const Sheet& s) { return s.isStrike(1) && s.isSpare(2); }, Verdict::SecondCount},
    {[](const Sheet& s) { return s.isCount(1) && s.isStrike(2); }, Verdict::SecondCount},
    {[](const Sheet& s) { return s.isCount(1) && s.isCount(2) && s.pins(1) + s.pins(2) > 9; },
     Verdict::FrameMismatch},
    {[](const Sheet& s) { return passesTwo(s) && s.isOther(3); }, Verdict::Good},
    {[](const Sheet& s) { return passesTwo(s) && isMarkedTwice(s) && (s.isStrike(3) || s.isCount(3)); },
     Verdict::Good},
    {[](const Sheet& s) { return passesTwo(s) && isMarkedTwice(s) && s.isSpare(3); }, Verdict::FrameMismatch},
    {[](const Sheet& s) { return passesTwo(s) && !isMarkedTwice(s) && s.isStrike(3); }, Verdict::FillCount},
    {[](const Sheet& s) { return passesTwo(s) && !isMarkedTwice(s) && s.isSpare(3); }, Verdict::Good},
    {[](const Sheet& s) {
         return passesTwo(s) && !isMarkedTwice(s) && s.isCount(3) && s.pins(2) + s.pins(3) > 9;
     },
     Verdict::FrameMismatch},
    {[](const Sheet& s) {
         return passesTwo(s) && !isMarkedTwice(s) && s.isCount(3) && s.pins(2) + s.pins(3) <= 9;
     },
     Verdict::Good},
};

TEST(EveryCell, IsCheckedByExactlyOneRule) {
    // What may be written, and what stands beside it among the characters.
    for (const std::string& cell : everyText("0123456789X/-.:WYx \\", 3)) {
        const Sheet sheet(cell);
        for (int frame = 1; frame <= kFrames; ++frame) {
            const CellCheck check = checkLineScore(frame, cell);
            int rules = 0;
            for (const CellRule& rule : frame == kFrames ? kTenthCells : kEarlyCells) {
                if (rule.holds(sheet)) {
                    ++rules;
                    ASSERT_EQ(check.verdict, rule.verdict) << cell << " in frame " << frame;
                }
            }
            ASSERT_EQ(rules, 1) << cell << " in frame " << frame;
            const bool isShortened = frame != kFrames && check.verdict == Verdict::Good;
            ASSERT_EQ(check.cell, isShortened ? cell.substr(0, sheet.isStrike(1) ? 1 : 2) : cell);
        }
    }
}

/// What a frame adds, with the two cells after it.
struct ScoreRule {
    std::function<bool(const Sheet& cell, const Sheet& next, const Sheet& afterNext)> holds;
    std::function<int(const Sheet& cell, const Sheet& next, const Sheet& afterNext)> adds;
};
using Sheets = const Sheet&;

const std::vector<ScoreRule> kEarlyScores{
    {[](Sheets a, Sheets, Sheets) { return !a.is("X") && !a.isSpare(2); },
     [](Sheets a, Sheets, Sheets) { return a.pins(1) + a.pins(2); }},
    {[](Sheets a, Sheets b, Sheets) { return a.isSpare(2) && !b.isStrike(1); },
     [](Sheets, Sheets b, Sheets) { return 10 + b.pins(1); }},
    {[](Sheets a, Sheets b, Sheets) { return a.isSpare(2) && b.isStrike(1); },
     [](Sheets, Sheets, Sheets) { return 20; }},
    {[](Sheets a, Sheets b, Sheets) { return a.is("X") && !b.is("X") && !b.holds('/'); },
     [](Sheets, Sheets b, Sheets) { return 10 + b.pins(1) + b.pins(2); }},
    {[](Sheets a, Sheets b, Sheets) { return a.is("X") && !b.is("X") && b.holds('/'); },
     [](Sheets, Sheets, Sheets) { return 20; }},
    {[](Sheets a, Sheets b, Sheets c) { return a.is("X") && b.is("X") && !c.isStrike(1); },
     [](Sheets, Sheets, Sheets c) { return 20 + c.pins(1); }},
    {[](Sheets a, Sheets b, Sheets c) { return a.is("X") && b.is("X") && c.isStrike(1); },
     [](Sheets, Sheets, Sheets) { return 30; }},
};

const std::vector<ScoreRule> kNinthScores{
    {[](Sheets a, Sheets, Sheets) { return !a.is("X") && !a.isSpare(2); },
     [](Sheets a, Sheets, Sheets) { return a.pins(1) + a.pins(2); }},
    {[](Sheets a, Sheets b, Sheets) { return a.isSpare(2) && b.isStrike(1); },
     [](Sheets, Sheets, Sheets) { return 20; }},
    {[](Sheets a, Sheets b, Sheets) { return a.isSpare(2) && !b.isStrike(1); },
     [](Sheets, Sheets b, Sheets) { return 10 + b.pins(1); }},
    {[](Sheets a, Sheets b, Sheets) { return a.is("X") && b.isStrike(1) && b.isStrike(2); },
     [](Sheets, Sheets, Sheets) { return 30; }},
    {[](Sheets a, Sheets b, Sheets) { return a.is("X") && b.isSpare(2); },
     [](Sheets, Sheets, Sheets) { return 20; }},
    {[](Sheets a, Sheets b, Sheets) { return a.is("X") && b.isStrike(1) && !b.isSpare(2) && !b.isStrike(2); },
     [](Sheets, Sheets b, Sheets) { return 20 + b.pins(2); }},
    {[](Sheets a, Sheets b, Sheets) { return a.is("X") && !b.isStrike(1) && !b.isSpare(2); },
     [](Sheets, Sheets b, Sheets) { return 10 + b.pins(1) + b.pins(2); }},
};

const std::vector<ScoreRule> kTenthScores{
    {[](Sheets a, Sheets, Sheets) { return a.is("XXX"); }, [](Sheets, Sheets, Sheets) { return 30; }},
    {[](Sheets a, Sheets, Sheets) { return a.isStrike(1) && a.isStrike(2) && !a.isStrike(3); },
     [](Sheets a, Sheets, Sheets) { return 20 + a.pins(3); }},
    {[](Sheets a, Sheets, Sheets) { return a.isStrike(1) && !a.isStrike(2) && a.isSpare(3); },
     [](Sheets, Sheets, Sheets) { return 20; }},
    {[](Sheets a, Sheets, Sheets) { return a.isStrike(1) && !a.isStrike(2) && !a.isSpare(3); },
     [](Sheets a, Sheets, Sheets) { return 10 + a.pins(2) + a.pins(3); }},
    {[](Sheets a, Sheets, Sheets) { return !a.isStrike(1) && a.isSpare(2) && a.isStrike(3); },
     [](Sheets, Sheets, Sheets) { return 20; }},
    {[](Sheets a, Sheets, Sheets) { return !a.isStrike(1) && a.isSpare(2) && !a.isStrike(3); },
     [](Sheets a, Sheets, Sheets) { return 10 + a.pins(3); }},
    {[](Sheets a, Sheets, Sheets) { return !a.isStrike(1) && !a.isSpare(2); },
     [](Sheets a, Sheets, Sheets) { return a.pins(1) + a.pins(2); }},
};

/// What the one rule that holds adds; -1 unless exactly one holds.
int addedBy(const std::vector<ScoreRule>& rules, Sheets cell, Sheets next, Sheets afterNext) {
    int added = -1;
    for (const ScoreRule& rule : rules) {
        if (!rule.holds(cell, next, afterNext))
            continue;
        if (added != -1)
            return -1;
        added = rule.adds(cell, next, afterNext);
    }
    return added;
}

/// What frame `frame` (1 to 10) adds to the score.
int added(const Cells& cells, int frame) {
    const auto scores = runningScores(cells);
    const auto at = static_cast<std::size_t>(frame - 1);
    return scores[at].value() - (at == 0 ? 0 : scores[at - 1].value());
}

TEST(EveryTriple, OfEarlyCellsAddsWhatOneRuleSays) {
    const std::vector<std::string> texts = everyText(marksOfThisRun(), 2);
    const std::vector<Sheet> cells(texts.begin(), texts.end());
    for (Sheets cell : cells) {
        for (Sheets next : cells) {
            for (Sheets afterNext : cells) {
                const int adds = addedBy(kEarlyScores, cell, next, afterNext);
                ASSERT_NE(adds, -1) << cell.cell << "|" << next.cell << "|" << afterNext.cell;
                Cells first;
                first[0] = cell.cell, first[1] = next.cell, first[2] = afterNext.cell;
                ASSERT_EQ(added(first, 1), adds) << cell.cell << "|" << next.cell << "|" << afterNext.cell;
            }
        }
    }
}

TEST(EveryTriple, AddsTheSameInEachOfTheEightFrames) {
    for (const std::string cell : {"X", "7/", "72"}) {
        for (const std::string next : {"X", "5/", "54"}) {
            for (const std::string afterNext : {"X", "36"}) {
                const int adds = addedBy(kEarlyScores, Sheet(cell), Sheet(next), Sheet(afterNext));
                for (std::size_t frame = 1; frame <= 8; ++frame) {
                    Cells cells;
                    cells[frame - 1] = cell, cells[frame] = next, cells[frame + 1] = afterNext;
                    EXPECT_EQ(added(cells, static_cast<int>(frame)), adds) << frame;
                }
            }
        }
    }
}

TEST(EveryTenth, CellAddsWhatOneRuleSaysAndSoDoesEveryNinthBeforeIt) {
    const std::vector<std::string> ninths = everyText(marksOfThisRun(), 2);
    for (const std::string& tenth : everyText(marksOfThisRun(), 3)) {
        const Sheet last(tenth);
        const Sheet none("");
        for (const std::string& ninth : ninths) {
            Cells cells;
            cells[8] = ninth, cells[9] = tenth;
            ASSERT_EQ(added(cells, 9), addedBy(kNinthScores, Sheet(ninth), last, none))
                << ninth << "|" << tenth;
            ASSERT_EQ(added(cells, 10), addedBy(kTenthScores, last, none, none)) << ninth << "|" << tenth;
        }
    }
}

TEST(EveryEighth, CellLooksIntoTheNinthAndTheTenth) {
    const std::vector<std::string> eighths{"X", "7/", "72"};
    for (const std::string& tenth : everyText(marksOfThisRun(), 3)) {
        for (const std::string& ninth : everyText(marksOfThisRun(), 2)) {
            for (const std::string& eighth : eighths) {
                Cells cells;
                cells[7] = eighth, cells[8] = ninth, cells[9] = tenth;
                ASSERT_EQ(added(cells, 8), addedBy(kEarlyScores, Sheet(eighth), Sheet(ninth), Sheet(tenth)))
                    << eighth << "|" << ninth << "|" << tenth;
            }
        }
    }
}

}  // namespace

}  // namespace tallybrook::test
