#include "reports/ReportRun.h"
#include "reports/ScoreSummary.h"
#include "reports/SpareMatrix.h"
#include "reports/StrikeSpareCounts.h"

#include <tuple>

#include <gtest/gtest.h>

namespace tallybrook {

namespace {

TenthFrameValues marks(const Value& first, const Value& second = "", const Value& fill = "",
                       const Value& lineScore = "") {
    return {.first = first, .second = second, .fill = fill, .lineScore = lineScore};
}

using Counts = std::tuple<int, int, int, int, int>;  // first balls, strikes, chances, spares, open frames

Counts countsOf(const StrikeSpareCounts& counts) {
    return {counts.FirstBalls.value(), counts.Strikes.value(), counts.SpareChances.value(),
            counts.Spares.value(), counts.OpenFrames.value()};
}

TEST(StrikeSpare, CountsTheFramesUpToTheNinth) {
    struct Case {
        Value first;
        Value second;
        Counts counts;
    };
    for (const Case& one :
         {Case{"X", "", {1, 1, 0, 0, 0}}, Case{"7", "/", {1, 0, 1, 1, 0}}, Case{"7", "7", {1, 0, 1, 0, 1}},
          Case{"", "", {1, 0, 1, 0, 1}}, Case{"x", "/", {1, 0, 1, 1, 0}},
          Case{Null{}, Null{}, {1, 0, 1, 0, 1}}, Case{Null{}, "/", {1, 0, 1, 1, 0}}}) {
        StrikeSpareCounts counts;
        counts.countFrame(one.first, one.second);
        EXPECT_EQ(countsOf(counts), one.counts);
    }
}

TEST(StrikeSpare, CountsTheTenthFrameByItsCases) {
    struct Case {
        TenthFrameValues frame;
        TenthFrame kind;
        Counts counts;
    };
    const Case cases[] = {
        {marks("X", "X", "X", "XXX"), TenthFrame::ThreeStrikes, {3, 3, 0, 0, 0}},
        {marks("", "", "", "XXX"), TenthFrame::ThreeStrikes, {3, 3, 0, 0, 0}},
        {marks("X", "X", "7", "XX9"), TenthFrame::TwoStrikes, {3, 2, 0, 0, 0}},
        {marks("X", "X", "", "XX-"), TenthFrame::TwoStrikes, {3, 2, 0, 0, 0}},
        {marks("X", "7", "/", "X9/"), TenthFrame::StrikeThenSpare, {2, 1, 1, 1, 0}},
        {marks("7", "/", "X", "9/X"), TenthFrame::SpareThenStrike, {2, 1, 1, 1, 0}},
        {marks("7", "/", "10", "9/9"), TenthFrame::SpareThenOther, {2, 0, 1, 1, 0}},
        {marks("7", "7", "", "9-"), TenthFrame::Open, {1, 0, 1, 0, 1}},
        {marks("", "", "", "9-"), TenthFrame::Open, {1, 0, 1, 0, 1}},
        {marks("X", "2-4", "4", "X81"), TenthFrame::None, {0, 0, 0, 0, 0}},
        {marks("X", "X", "X", "XX"), TenthFrame::None, {0, 0, 0, 0, 0}},
        {marks("7", "X", "", ""), TenthFrame::None, {0, 0, 0, 0, 0}},
        {marks("7", "7", "/", ""), TenthFrame::None, {0, 0, 0, 0, 0}},
        // A ball that nobody has filled fits no case.
        {marks("X", "X", Null{}, "XX9"), TenthFrame::None, {0, 0, 0, 0, 0}},
        {marks("X", Null{}, "/", "X9/"), TenthFrame::None, {0, 0, 0, 0, 0}},
        {marks(Null{}, "/", "X", "9/X"), TenthFrame::None, {0, 0, 0, 0, 0}},
        {marks(Null{}, "7", "", "9-"), TenthFrame::None, {0, 0, 0, 0, 0}},
        {marks("7", "7", Null{}, "9-"), TenthFrame::None, {0, 0, 0, 0, 0}},
        {marks("7", "7", "", Null{}), TenthFrame::Open, {1, 0, 1, 0, 1}},
    };
    for (const Case& one : cases) {
        StrikeSpareCounts counts;
        counts.countTenthFrame(one.frame);
        EXPECT_EQ(tenthFrameOf(one.frame), one.kind) << toText(one.frame.lineScore);
        EXPECT_EQ(countsOf(counts), one.counts) << toText(one.frame.lineScore);
    }
}

TEST(StrikeSpare, CountsAGameWithoutAMark) {
    StrikeSpareCounts counts;
    for (int frame = 1; frame <= 9; ++frame)
        counts.countFrame("7", "7");
    counts.countTenthFrame(marks("7", "7", "", "9-"));
    EXPECT_EQ(countsOf(counts), Counts(10, 0, 10, 0, 10));
}

TEST(StrikeSpare, DerivesItsFigures) {
    StrikeSpareCounts counts;
    counts.FirstBalls = 3;
    counts.Strikes = 2;
    counts.SpareChances = 8;
    counts.Spares = 1;
    counts.OpenFrames = 7;
    counts.derive({.PinfallGames = 1, .LineScoreGames = 1, .ScoreOnlyGames = 5});
    EXPECT_EQ(counts.StrikePct, 66.7);
    EXPECT_EQ(counts.SparePct, 12.5);
    EXPECT_EQ(counts.OpenPct, 87.5);
    EXPECT_EQ(counts.StrikeAvg, 1);
    EXPECT_EQ(counts.SpareAvg, 0);  // 0.5, a tie that goes to the even number
    EXPECT_EQ(counts.OpenAvg, 4);   // 3.5
}

TEST(StrikeSpare, DividesNothingByNothing) {
    StrikeSpareCounts counts;
    counts.derive({});
    EXPECT_EQ(countsOf(counts), Counts(0, 0, 0, 0, 0));
    EXPECT_EQ(counts.StrikePct, 0);
    EXPECT_EQ(counts.SparePct, 0);
    EXPECT_EQ(counts.OpenPct, 0);
    EXPECT_EQ(counts.StrikeAvg, 0);
}

TEST(StrikeSpare, RoundsFiguresPerGameToTheEvenNeighbour) {
    EXPECT_EQ(perGame(5, 2), 2);
    EXPECT_EQ(perGame(7, 2), 4);
    EXPECT_EQ(perGame(2, 3), 1);
    EXPECT_EQ(perGame(7, 0), 0);
}

TEST(StrikeSpare, RoundsPercentagesByTheirDecimalText) {
    EXPECT_EQ(percentage(2, 3), 66.7);
    EXPECT_EQ(percentage(23, 80), 28.8);  // 28.75
    EXPECT_EQ(percentage(1, 1), 100);
    EXPECT_EQ(percentage(1, 0), 0);
}

TEST(SpareMatrix, KeepsTheOrderInWhichLeavesAreMet) {
    SpareMatrix matrix;
    matrix.count("7-10", false);
    matrix.count("10", true);
    matrix.count("7-10", true);
    matrix.count("7-10", false);
    matrix.count("10-7", false);  // the same pins, but another text
    matrix.derive(15);
    ASSERT_EQ(matrix.rows().size(), 3U);
    EXPECT_EQ(matrix.rows()[0].leave, "7-10");
    EXPECT_EQ(matrix.rows()[0].attempts, 3);
    EXPECT_EQ(matrix.rows()[0].conversions, 1);
    EXPECT_EQ(matrix.rows()[0].percentage, "33.33");
    EXPECT_EQ(matrix.rows()[0].perGame, "0.2");
    EXPECT_EQ(matrix.rows()[1].percentage, "100.00");
    EXPECT_EQ(matrix.rows()[1].perGame, "0.1");
    EXPECT_EQ(matrix.rows()[2].leave, "10-7");
}

TEST(SpareMatrix, HasNoFigurePerGameWithoutPinfallGames) {
    SpareMatrix matrix;
    matrix.count("7", true);
    matrix.derive(0);
    EXPECT_EQ(matrix.rows()[0].perGame, "0");
}

TEST(SpareMatrix, HoldsNoMoreLeavesThanItsIndexCounts) {
    SpareMatrix matrix;
    for (int leave = 1; leave <= 32767; ++leave)
        matrix.count(std::to_string(leave), false);
    matrix.count("32767", true);
    try {
        matrix.count("one more", true);
        FAIL() << "it is taken";
    } catch (const RunTimeError& failure) {
        EXPECT_EQ(failure.number(), error::kOverflow);
    }
}

TEST(ScoreSummary, PutsEveryScoreIntoItsBin) {
    struct Case {
        int score;
        int bin;  // from 1; 0 for none
    };
    for (const Case one :
         {Case{-5, 1}, {0, 1},    {99, 1},   {100, 2},  {119, 2},  {120, 3}, {139, 3}, {140, 4},
          {159, 4},    {160, 5},  {179, 5},  {180, 6},  {199, 6},  {200, 7}, {219, 7}, {220, 8},
          {239, 8},    {240, 9},  {259, 9},  {260, 10}, {279, 10}, {280, 0}, {285, 0}, {297, 0},
          {298, 12},   {299, 13}, {300, 14}, {301, 0},  {32767, 0}}) {
        ScoreSummary summary;
        summary.countGame(one.score, makeDate(2026, 1, 1));
        for (int bin = 1; bin <= 14; ++bin)
            EXPECT_EQ(summary.GameBins.at(static_cast<std::size_t>(bin - 1)).games, bin == one.bin ? 1 : 0)
                << one.score << " in bin " << bin;
    }
}

TEST(ScoreSummary, LooksForTheLowOnlyWhereThereIsNoNewHigh) {
    const auto highAndLow = [](std::initializer_list<int> scores) {
        ScoreSummary summary;
        unsigned day = 0;
        for (const int score : scores)
            summary.countGame(score, makeDate(2026, 1, ++day));
        return std::tuple(summary.HighGame.value(), summary.HighGameDate, summary.LowGame.value(),
                          summary.LowGameDate);
    };
    const auto day = [](unsigned number) { return makeDate(2026, 1, number); };
    EXPECT_EQ(highAndLow({212}), std::tuple(212, day(1), 301, kZeroDate));
    EXPECT_EQ(highAndLow({180, 150}), std::tuple(180, day(1), 150, day(2)));
    EXPECT_EQ(highAndLow({150, 180}), std::tuple(180, day(2), 301, kZeroDate));
    EXPECT_EQ(highAndLow({180, 180, 180}), std::tuple(180, day(1), 180, day(2)));
    EXPECT_EQ(highAndLow({180, 0}), std::tuple(180, day(1), 0, day(2)));
    EXPECT_EQ(highAndLow({0}), std::tuple(0, kZeroDate, 0, day(1)));
    EXPECT_EQ(highAndLow({}), std::tuple(0, kZeroDate, 301, kZeroDate));
}

TEST(ScoreSummary, KeepsTheFirstOfEqualSeries) {
    ScoreSummary summary;
    summary.allow(3);
    summary.countSeries(3, 500, makeDate(2026, 1, 1));
    summary.countSeries(3, 500, makeDate(2026, 1, 2));
    const SeriesRow& row = summary.SeriesMatrix.at(3);
    EXPECT_EQ(row.high, 500);
    EXPECT_EQ(row.highDate, makeDate(2026, 1, 1));
    EXPECT_EQ(row.low, 500);
    EXPECT_EQ(row.lowDate, makeDate(2026, 1, 1));
}

TEST(ScoreSummary, HasRoomForSeriesOfUpTo109Games) {
    ScoreSummary summary;
    summary.allow(109);
    EXPECT_EQ(summary.SeriesMatrix.back().low, 32701);
    EXPECT_THROW(summary.allow(110), RunTimeError);
    ScoreSummary none;
    EXPECT_THROW(none.countSeries(0, 0, kZeroDate), RunTimeError);
    EXPECT_THROW(summary.countSeries(-1, 0, kZeroDate), RunTimeError);
}

}  // namespace

}  // namespace tallybrook
