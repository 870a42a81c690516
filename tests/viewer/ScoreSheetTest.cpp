#include "bowling/ScoreCell.h"
#include "viewer/ScoreSheet.h"

#include <QStringList>
#include <algorithm>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace tallybrook::test {

namespace {

SheetMarks marks(const QString& cells) {
    SheetMarks all;
    const QStringList list = cells.split(' ');
    std::ranges::copy(list, all.begin());
    return all;
}

/// The totals as far as they go.
std::vector<int> totals(const QString& cells) {
    std::vector<int> known;
    for (const std::optional<int>& total : totalsOf(marks(cells))) {
        if (total)
            known.push_back(*total);
    }
    return known;
}

using Totals = std::vector<int>;

/// The marks of a rack that is bowled at twice, or once for a strike.
QString rack() {
    const int first = *rc::gen::inRange(0, 11);
    if (first == 10)
        return "X";
    const int second = *rc::gen::inRange(0, 11 - first);
    return QString::number(first) + (first + second == 10 ? QString("/") : QString::number(second));
}

QString tenthFrame() {
    const QString first = rack();
    if (first == "X") {
        const QString next = rack();
        return next == "X" ? "XX" + rack().left(1) : "X" + next;
    }
    return first.endsWith('/') ? first + rack().left(1) : first;
}

}  // namespace

TEST(ScoreSheet, CountsBallsAsOnPaper) {
    EXPECT_EQ(totals("81 0/ 8/ 90 9/ 80 09 90 90 90"), (Totals{9, 27, 46, 55, 73, 81, 90, 99, 108, 117}));
    EXPECT_EQ(totals("X X X X X X X X X XXX"), (Totals{30, 60, 90, 120, 150, 180, 210, 240, 270, 300}));
    EXPECT_EQ(totals("9/ 9/ 9/ 9/ 9/ 9/ 9/ 9/ 9/ 9/9"),
              (Totals{19, 38, 57, 76, 95, 114, 133, 152, 171, 190}));
    EXPECT_EQ(totals("00 00 00 00 00 00 00 00 X X8/"), (Totals{0, 0, 0, 0, 0, 0, 0, 0, 28, 48}));
}

TEST(ScoreSheet, WaitsForTheBallsThatCount) {
    EXPECT_EQ(totals("81 X X"), (Totals{9}));
    EXPECT_EQ(totals("81 9/"), (Totals{9}));
    EXPECT_EQ(totals("81 9/ 7"), (Totals{9, 26}));
    EXPECT_EQ(totals("X 4"), Totals{});
    EXPECT_EQ(totals("X X X"), (Totals{30}));
    EXPECT_EQ(totals("00 00 00 00 00 00 00 00 00 X8").size(), 9U);
    EXPECT_EQ(totals(""), Totals{});
}

TEST(ScoreSheet, BallLeftOutBeforeAnotherFrameCountsNothing) {
    EXPECT_EQ(totals("9 81"), (Totals{9, 18}));
    EXPECT_EQ(totals("9/ 8 X"), (Totals{18, 26}));
}

TEST(ScoreSheet, EndsBeforeWhatIsNoMark) {
    for (const char* const cell : {"", "x", "88", "/", "X1", "812", "9X", "-", "9-", "\u0669", "99999999999"})
        EXPECT_EQ(totals(QString("81 ") + cell + " 81 81"), (Totals{9})) << cell;
    for (const char* const cell : {"812", "X/", "9/5/", "XX/", "X8X", "XXXX"})
        EXPECT_EQ(totals(QString("00 00 00 00 00 00 00 00 00 ") + cell).size(), 9U) << cell;
}

RC_GTEST_PROP(ScoreSheet, AgreesWithTheProgramOnWholeGames, ()) {
    SheetMarks all;
    std::array<std::string, kFrames> cells;
    for (std::size_t frame = 0; frame < kSheetFrames; ++frame) {
        all[frame] = frame == kSheetFrames - 1 ? tenthFrame() : rack();
        cells[frame] = all[frame].toStdString();
    }
    const SheetTotals ours = totalsOf(all);
    const auto theirs = runningScores(cells);
    for (std::size_t frame = 0; frame < kSheetFrames; ++frame) {
        RC_ASSERT(ours[frame].has_value());
        RC_ASSERT(*ours[frame] == theirs[frame].value());
    }
}

}  // namespace tallybrook::test
