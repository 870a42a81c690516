#include "Golden.h"
#include "Mutations.h"
#include "readers/ReportFigures.h"

#include <QStringList>
#include <algorithm>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace tallybrook::test {

namespace {

std::vector<int> gamesOf(const ScoreFigures& scores) {
    std::vector<int> games;
    for (const ScoreRange& range : scores.ranges)
        games.push_back(range.games);
    return games;
}

/// A leave in short, as in "7-10 3/4".
QString inShort(const LeaveFigures& leave) {
    return QString("%1 %2/%3").arg(leave.pins).arg(leave.made).arg(leave.attempts);
}

QStringList firstOf(const std::vector<LeaveFigures>& leaves, std::size_t count) {
    QStringList first;
    for (std::size_t i = 0; i < std::min(count, leaves.size()); ++i)
        first += inShort(leaves[i]);
    return first;
}

QString joined(const SheetMarks& marks) {
    return QStringList(marks.begin(), marks.end()).join(' ');
}

void expectScore(const std::optional<DatedScore>& score, int wanted, const char* date) {
    ASSERT_TRUE(score);
    EXPECT_EQ(score->score, wanted);
    EXPECT_EQ(score->date, date);
}

}  // namespace

// --- Statistics --------------------------------------------------------------------------------------------

TEST(ReportFigures, ScoresOfTheSeason) {
    const ReportFigures figures = readFigures(goldenReport("statistics.txt"));
    ASSERT_TRUE(figures.scores);
    EXPECT_EQ(gamesOf(*figures.scores), (std::vector{1, 8, 11, 5, 6, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(figures.scores->ranges.front().label, "Under 100");
    EXPECT_EQ(figures.scores->ranges[10].label, "280 - 297");
    EXPECT_TRUE(figures.scores->ranges[4].holds(172));
    EXPECT_FALSE(figures.scores->ranges[3].holds(172));
    expectScore(figures.scores->high, 172, "10/23/2024");
    expectScore(figures.scores->low, 99, "11/21/2024");
    EXPECT_TRUE(figures.games.empty());
}

TEST(ReportFigures, SeriesOfTheSeason) {
    const std::vector<SeriesFigures> series = readFigures(goldenReport("statistics.txt")).series;
    ASSERT_EQ(series.size(), 5U);
    EXPECT_EQ(series[2].games, 3);
    expectScore(series[2].high, 331, "11/6/2024");
    expectScore(series[2].low, 0, "11/6/2024");
    EXPECT_EQ(series[4].games, 6);
    expectScore(series[4].high, 867, "10/23/2024");
    expectScore(series[4].low, 843, "11/7/2024");
}

TEST(ReportFigures, AreNoneOnlyWhereThereAreNoneOfAnyKind) {
    const auto isEmptyWith = [](const auto& set) {
        ReportFigures figures;
        set(figures);
        return figures.isEmpty();
    };
    EXPECT_TRUE(isEmptyWith([](ReportFigures& /*none*/) {}));
    EXPECT_FALSE(isEmptyWith([](ReportFigures& figures) { figures.games.resize(1); }));
    EXPECT_FALSE(isEmptyWith([](ReportFigures& figures) { figures.scores.emplace(); }));
    EXPECT_FALSE(isEmptyWith([](ReportFigures& figures) { figures.series.resize(1); }));
    EXPECT_FALSE(isEmptyWith([](ReportFigures& figures) { figures.strikes.emplace(); }));
    EXPECT_FALSE(isEmptyWith([](ReportFigures& figures) { figures.leaves.resize(1); }));
    EXPECT_FALSE(isEmptyWith([](ReportFigures& figures) { figures.events.unscored = 1; }));
}

TEST(ReportFigures, StrikesOfTheSeason) {
    const auto strikes = readFigures(goldenReport("statistics.txt")).strikes;
    ASSERT_TRUE(strikes);
    EXPECT_EQ(strikes->strikes, 25);
    EXPECT_EQ(strikes->strikePercent, "9.2");
    EXPECT_EQ(strikes->spares, 47);
    EXPECT_EQ(strikes->sparePercent, "19.4");
    EXPECT_EQ(strikes->opens, 195);
    EXPECT_EQ(strikes->lineScoreGames, 11);
    EXPECT_EQ(strikes->singlePins, (SinglePins{90, 30}));
    EXPECT_EQ(strikes->firstBallAverage, 7);
}

TEST(ReportFigures, SinglePinsAreThoseBelowTheirOwnHeading) {
    QString text = goldenReport("statistics.txt");
    text.replace("Attempts: 90\t\tConversions: 30",
                 "None\n\nOther Spares\n------------\nAttempts: 5\t\tConversions: 4");
    const auto strikes = readFigures(text).strikes;
    ASSERT_TRUE(strikes);
    EXPECT_FALSE(strikes->singlePins);
    EXPECT_EQ(strikes->firstBallAverage, 7);
}

TEST(ReportFigures, SinglePinsAloneAreFiguresOfStrikes) {
    const QString heading =
        "Statistical Report\n\nStrike / Spare Summary Statistics\n---------------------------------\n";
    EXPECT_FALSE(readFigures(heading).strikes);
    const auto strikes =
        readFigures(heading + "\nSingle Pin Spares\n-----------------\nAttempts: 9\t\tConversions: 3\n")
            .strikes;
    ASSERT_TRUE(strikes);
    EXPECT_EQ(strikes->singlePins, (SinglePins{9, 3}));
}

TEST(ReportFigures, LeavesOfTheSeasonByAttempts) {
    const std::vector<LeaveFigures> leaves = readFigures(goldenReport("statistics.txt")).leaves;
    EXPECT_EQ(leaves.size(), 58U);
    EXPECT_EQ(firstOf(leaves, 8), (QStringList{"1-2-3-4-5-6-7-8-9-10 6/12", "2 2/8", "8 2/8", "6 5/8",
                                               "9 2/7", "1 4/7", "4 3/6", "10 1/6"}));
    EXPECT_EQ(inShort(leaves.back()), "3-4-6-9 0/1");
    EXPECT_EQ(leaves[1].standing, Pins{2});
}

TEST(ReportFigures, LeagueHasItsOwn) {
    const ReportFigures figures = readFigures(goldenReport("league.txt"));
    ASSERT_TRUE(figures.scores && figures.strikes);
    EXPECT_EQ(gamesOf(*figures.scores), (std::vector{1, 2, 2, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    expectScore(figures.scores->high, 155, "11/21/2024");
    EXPECT_EQ(figures.series.size(), 2U);
    EXPECT_EQ(figures.strikes->opens, 39);
    EXPECT_EQ(firstOf(figures.leaves, 2), (QStringList{"1-2-3-4-5-6-7-8-9-10 3/5", "10 0/3"}));
}

TEST(ReportFigures, HighAndLowWithoutADayAreNone) {
    QString text = goldenReport("statistics.txt");
    text.replace("Low Game: 99\tDate Bowled: 11/21/2024", "Low Game: 301\tDate Bowled: 12:00:00 AM");
    const ReportFigures figures = readFigures(text);
    ASSERT_TRUE(figures.scores);
    EXPECT_FALSE(figures.scores->low);
    EXPECT_TRUE(figures.scores->high);
    text.replace("High Game: 172\tDate Bowled: 10/23/2024", "High Game: 172\tDate Bowled: ");
    EXPECT_FALSE(readFigures(text).scores->high);
}

TEST(ReportFigures, CommentsAreNoFigures) {
    QString text = goldenReport("statistics.txt");
    text.replace("Comment: tab here",
                 "Comment: \nGame Statistics\n---------------\nGames under 100: 99\n\n"
                 "Strike / Spare Summary Statistics\n---------------------------------\n");
    const ReportFigures figures = readFigures(text);
    ASSERT_TRUE(figures.scores && figures.strikes);
    EXPECT_EQ(figures.scores->ranges.front().games, 1);
    EXPECT_EQ(figures.strikes->strikes, 25);
}

TEST(ReportFigures, CommentsAreNoGames) {
    QString text = goldenReport("full.txt");
    text.replace("Comment: dry lanes", "Comment: dry lanes\nGame 3   Game Score: 300");
    EXPECT_EQ(readFigures(text).games, readFigures(goldenReport("full.txt")).games);
}

TEST(ReportFigures, LeavesMayBeAnyText) {
    QString text = goldenReport("league.txt");
    text +=
        "                         7                 2               28.57%\t0.4\n"  // an unrecorded ball
        "12                       1                 0               0.00%\t0.1\n"
        "7 8 X                    1                 1               100.00%\t0.1\n"
        "1-2-3-4-5-6-7-8-9-10-1-2-3 1                 0               0.00%\t0.1\n"
        "5                        1                 2               200.00%\t0.1\n";
    const std::vector<LeaveFigures> leaves = readFigures(text).leaves;
    ASSERT_EQ(leaves.size(), 19U);
    EXPECT_EQ(inShort(leaves.front()), " 2/7");
    EXPECT_FALSE(leaves.front().standing);
    EXPECT_EQ(firstOf({leaves.end() - 3, leaves.end()}, 3),
              (QStringList{"12 0/1", "7 8 X 1/1", "1-2-3-4-5-6-7-8-9-10-1-2-3 0/1"}));
    EXPECT_FALSE(leaves[leaves.size() - 2].standing);
}

// --- Games -------------------------------------------------------------------------------------------------

TEST(ReportFigures, GamesOfAnEvent) {
    for (const char* const report : {"summary.txt", "full.txt"}) {
        const ReportFigures figures = readFigures(goldenReport(report));
        ASSERT_EQ(figures.games.size(), 2U) << report;
        EXPECT_EQ(figures.games[0].number, "1");
        EXPECT_EQ(figures.games[0].score, "118");
        EXPECT_FALSE(figures.games[0].frames);
        EXPECT_EQ(figures.games[1].number, "2");
        EXPECT_EQ(figures.games[1].score, "117");
        ASSERT_TRUE(figures.games[1].frames);
        EXPECT_EQ(joined(*figures.games[1].frames), "81 0/ 8/ 90 9/ 80 09 90 90 90");
        EXPECT_FALSE(figures.scores);
        ASSERT_TRUE(figures.strikes);
        EXPECT_EQ(figures.strikes->spares, 3);
        EXPECT_EQ(firstOf(figures.leaves, 2), (QStringList{"1-2-3-4-5-6-7-8-9-10 1/2", "1-9 0/1"}));
    }
}

TEST(ReportFigures, FramesThatAreNotThereAreEmpty) {
    QString text = goldenReport("summary.txt");
    text.replace("81\t0/\t8/\t90\t9/\t80\t09\t90\t90\t90", "\t0/\t8/");
    const ReportFigures figures = readFigures(text);
    ASSERT_TRUE(figures.games.at(1).frames);
    EXPECT_EQ(joined(*figures.games[1].frames), " 0/ 8/       ");
}

TEST(ReportFigures, GameReport) {
    const ReportFigures figures = readFigures(kGameReport);
    ASSERT_EQ(figures.games.size(), 1U);
    EXPECT_EQ(figures.games[0].number, "2");
    EXPECT_EQ(figures.games[0].score, "117");
    ASSERT_TRUE(figures.games[0].frames);
    EXPECT_EQ(joined(*figures.games[0].frames), "81 0/ 8/ 90 9/ 80 09 90 X X8/");
}

TEST(ReportFigures, MarksMayBeAllThatStandsBelowTheirHeading) {
    const QString marks = "81\t0/\t8/\t90\t9/\t80\t09\t90\tX\tX8/\t";
    const QString text = kGameReport.section("1\t2\t3", 0, 0) + marks;
    EXPECT_TRUE(text.endsWith("\nLine Score:\n" + marks));
    ASSERT_EQ(readFigures(text).games.size(), 1U);
    EXPECT_EQ(joined(readFigures(text).games[0].frames.value_or(SheetMarks())),
              "81 0/ 8/ 90 9/ 80 09 90 X X8/");
}

TEST(ReportFigures, GameReportWithoutMarksHasNoFrames) {
    QString text = kGameReport;
    text.replace("81\t0/\t8/\t90\t9/\t80\t09\t90\tX\tX8/\t", QString(10, '\t'));
    ASSERT_EQ(readFigures(text).games.size(), 1U);
    EXPECT_FALSE(readFigures(text).games[0].frames);
}

TEST(ReportFigures, NewerReportsMayTellMoreAboveTheMarks) {
    QString text = kGameReport;
    text.replace("1\t2\t3", "Hand: Right\n1\t2\t3");
    ASSERT_EQ(readFigures(text).games.size(), 1U);
    EXPECT_EQ(joined(readFigures(text).games[0].frames.value_or(SheetMarks())),
              "81 0/ 8/ 90 9/ 80 09 90 X X8/");
}

TEST(ReportFigures, GameWithoutANumberIsNone) {
    QString text = kGameReport;
    text.remove("Game: 2\t").replace("(Game #2)", "(Game #)");
    EXPECT_TRUE(readFigures(text).isEmpty());
}

TEST(ReportFigures, FramesAreNumberedFromOneToTen) {
    for (const int number : {-1, 0, 1, 10, 11}) {
        QString text = kGameReport;
        text.replace("Frame: 1\tLane: 28\n", QString("Frame: %1\tLane: 28\n7\t\t/\n").arg(number));
        SheetMarks leaves;
        if (number >= 1 && number <= 10)
            leaves[static_cast<std::size_t>(number - 1)] = "7";
        ASSERT_EQ(readFigures(text).games.size(), 1U) << number;
        EXPECT_EQ(readFigures(text).games[0].leaves, leaves) << number;
    }
}

TEST(ReportFigures, MayBeTheListOfEventsAlone) {
    QString text = goldenReport("statistics.txt");
    text.truncate(text.indexOf("Game Statistics"));
    const ReportFigures figures = readFigures(text);
    EXPECT_FALSE(figures.scores || figures.strikes);
    EXPECT_FALSE(figures.isEmpty());
}

TEST(ReportFigures, MayBeTheHighGameAlone) {
    QString text = goldenReport("statistics.txt");
    text = text.section('\n', 0, 6) + "\n\nGame Statistics\n---------------\n" +
           "High Game: 172\t Date Bowled: 10/23/2024\n";
    const ReportFigures figures = readFigures(text);
    ASSERT_TRUE(figures.scores);
    EXPECT_TRUE(figures.scores->ranges.empty());
    expectScore(figures.scores->high, 172, "10/23/2024");
}

TEST(ReportFigures, SeriesAreOfOneGameAtLeast) {
    QString text = goldenReport("statistics.txt");
    text.replace("High Series (3 games)", "High Series (0 games)");
    for (const SeriesFigures& series : readFigures(text).series)
        EXPECT_TRUE(series.games > 0 && (series.games != 3 || !series.high)) << series.games;
}

// --- Any text ----------------------------------------------------------------------------------------------

TEST(ReportFigures, TextThatIsNoReportHasNone) {
    const QString body = goldenReport("statistics.txt").section('\n', 2);
    for (const QString& text :
         {QString(), QString("\n"), QString("League Night\n"), body, "Notes\nStatistical Report\n" + body,
          QString("Tallybrook 2.0"), QString(QChar::Null).repeated(100)})
        EXPECT_TRUE(readFigures(text).isEmpty()) << text.left(40).toStdString();
}

TEST(ReportFigures, KindIsToldByTheFirstTenLines) {
    const QString text = goldenReport("statistics.txt");
    const qsizetype kind = text.indexOf("Statistical Report");
    const auto readBelow = [&](int lines) {
        QString later = text;
        later.remove("Report Type: All Events\n");
        return readFigures(later.insert(kind, QString(lines, '\n')));
    };
    EXPECT_FALSE(readBelow(8).isEmpty());
    EXPECT_TRUE(readBelow(9).isEmpty());
}

TEST(ReportFigures, HeaderAloneHasNone) {
    const QString text = goldenReport("statistics.txt").section('\n', 0, 6);
    EXPECT_TRUE(text.endsWith("matching events."));
    EXPECT_TRUE(readFigures(text).isEmpty());
}

TEST(ReportFigures, OtherVersionsAreRead) {
    QString text = goldenReport("statistics.txt");
    text.replace("Tallybrook 2.0", "Tallybrook 3.1");
    EXPECT_FALSE(readFigures(text).isEmpty());
}

RC_GTEST_PROP(ReportFigures, AnyTextWillDo, ()) {
    const ReportFigures figures = readFigures(mutatedReport());
    RC_ASSERT(std::ranges::is_sorted(figures.leaves, std::ranges::greater(), &LeaveFigures::attempts));
    for (const LeaveFigures& leave : figures.leaves)
        RC_ASSERT(0 <= leave.made && leave.made <= leave.attempts);
    if (figures.scores)
        RC_ASSERT(figures.scores->ranges.size() <= 14U);
    for (const SeriesFigures& series : figures.series)
        RC_ASSERT(series.games > 0 && (series.high || series.low));
}

}  // namespace tallybrook::test
