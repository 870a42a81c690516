#include "pictures/SeasonsSideBySide.h"
#include "readers/Events.h"
#include "readers/FileFailure.h"

#include <QRegularExpression>
#include <algorithm>
#include <map>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

ComparedShare share(Proportion before, Proportion last) {
    return {"10", {before, last}, 0};
}

class SeasonsSideBySideTest : public testing::Test {
protected:
    Files files;
    QString earlier = files.write("earlier.txt", reportOf(weeklyEvents(40)).toUtf8());
    QString later = files.write("later.txt", goldenReport("league.txt").toUtf8());
};

}  // namespace

TEST_F(SeasonsSideBySideTest, ChanceIsToldInPlainWords) {
    EXPECT_EQ(chanceTold(share({15, 38}, {24, 40})), "24 of 40 against 15 of 38: more than chance would do");
    EXPECT_EQ(chanceTold(share({15, 38}, {18, 40})), "18 of 40 against 15 of 38: may well be chance");
    EXPECT_EQ(chanceTold(share({1, 2}, {18, 40})), "18 of 40 against 1 of 2: too few to tell");
}

TEST_F(SeasonsSideBySideTest, OnlyStatisticalReportsAreCompared) {
    const QString game = files.write("game.txt", kGameReport.toUtf8());
    EXPECT_TRUE(areStatistical({earlier, later}));
    EXPECT_FALSE(areStatistical({earlier, game}));
    EXPECT_FALSE(areStatistical({earlier, files.path("none.txt")}));
    try {
        readSeasons({earlier, game});
        ADD_FAILURE() << "a game is no season";
    } catch (const FileFailure& failure) {
        EXPECT_EQ(failure.reason(), "game.txt is no statistical report, and only these can be compared.");
    }
    ReportFigures figures = readFigures(kGameReport);
    EXPECT_FALSE(isStatistical(figures));
    figures.scores = ScoreFigures();
    EXPECT_TRUE(isStatistical(figures));
    figures.scores.reset();
    figures.events = readFigures(reportOf(weeklyEvents(1))).events;
    EXPECT_TRUE(isStatistical(figures));
}

TEST_F(SeasonsSideBySideTest, ReportsAreComparedInTheOrderOfTheirEvents) {
    const QString text = readSeasons({later, earlier}).text();
    EXPECT_TRUE(text.contains("Report 1: earlier.txt, 9/6/1990 to 6/6/1991\nReport 2: later.txt, "));
}

/// Every leave of both reports with its figures as they stand there.
TEST_F(SeasonsSideBySideTest, TextHasTheFiguresOfBoth) {
    const SeasonsSideBySide seasons = readSeasons({earlier, later});
    const QStringList lines = seasons.text().split('\n');
    const auto lineOf = [&](const QString& name) {
        const auto found =
            std::ranges::find_if(lines, [&](const QString& line) { return line.startsWith(name + "  "); });
        return found == lines.end() ? QString() : found->simplified();
    };
    const ReportFigures first = readFigures(goldenReport("statistics.txt"));
    const ReportFigures second = readFigures(goldenReport("league.txt"));
    for (const LeaveFigures& leave : second.leaves) {
        const auto before = std::ranges::find(first.leaves, leave.pins, &LeaveFigures::pins);
        ASSERT_NE(before, first.leaves.end());
        const QString name = leave.standing == Pins::all() ? QString("All ten pins") : leave.pins;
        EXPECT_TRUE(lineOf(name).contains(QString("%1 of %2, ").arg(before->made).arg(before->attempts)));
        EXPECT_TRUE(lineOf(name).contains(QString("%1 of %2, ").arg(leave.made).arg(leave.attempts)))
            << lineOf(name).toStdString();
    }
    EXPECT_TRUE(lineOf("Spares").startsWith(QString("Spares %1 of %2, ")
                                                .arg(*first.strikes->spares)
                                                .arg(*first.strikes->spares + *first.strikes->opens)));
    EXPECT_TRUE(lineOf("Single pins").startsWith("Single pins 30 of 90, 33%"));
}

/// Each row says in a word what the pictures tell in a sentence.
TEST_F(SeasonsSideBySideTest, TextSaysWhatChanceHasToDoWithIt) {
    const SeasonsSideBySide seasons = readSeasons({earlier, later});
    const QStringList lines = seasons.text().split('\n');
    const std::map<QString, QString> words{{"too few to tell", "too few"},
                                           {"may well be chance", "maybe"},
                                           {"more than chance would do", "hardly"}};
    const std::vector<ReportPicture> pictures = seasons.pictures();
    for (std::size_t index = 1; index < pictures.size(); ++index) {  // behind the averages
        for (const QStringList& row : pictures[index].table({}).rows) {
            const auto line = std::ranges::find_if(
                lines, [&](const QString& one) { return one.startsWith(row.first() + "  "); });
            ASSERT_NE(line, lines.end()) << row.first().toStdString();
            EXPECT_TRUE(line->endsWith("  " + words.at(row.at(4).section(": ", 1)))) << line->toStdString();
        }
    }
}

TEST_F(SeasonsSideBySideTest, OnePointIsNotTwo) {
    const auto season = [](int strikes) {
        ReportFigures figures;
        figures.strikes = StrikeFigures();
        figures.strikes->strikes = strikes;
        figures.strikes->spares = 20;
        figures.strikes->opens = 80 - strikes;
        return ComparedReport{"season.txt", figures};
    };
    const auto strikesOf = [&](int before, int last) {
        const QStringList lines = SeasonsSideBySide({season(before), season(last)}).text().split('\n');
        return lines[lines.indexOf(QRegularExpression("^Strikes .*"))].simplified().toStdString();
    };
    EXPECT_EQ(strikesOf(40, 41), "Strikes 40 of 100, 40% 41 of 100, 41% +1 point maybe");
    EXPECT_EQ(strikesOf(40, 39), "Strikes 40 of 100, 40% 39 of 100, 39% -1 point maybe");
    EXPECT_EQ(strikesOf(40, 38), "Strikes 40 of 100, 40% 38 of 100, 38% -2 points maybe");
    EXPECT_EQ(strikesOf(40, 40), "Strikes 40 of 100, 40% 40 of 100, 40% no change maybe");
}

/// On paper wider lines are parted.
TEST_F(SeasonsSideBySideTest, ThreeReportsFitOnPaper) {
    const QString third = files.write("third.txt", reportOf(weeklyEvents(90)).toUtf8());
    for (const QString& line : readSeasons({earlier, later, third}).text().split('\n'))
        EXPECT_LE(line.size(), 100) << line.toStdString();
}

/// Counts of five digits stand as far from what follows as others.
TEST_F(SeasonsSideBySideTest, ColumnsAreAsWideAsTheirTexts) {
    QString many = goldenReport("statistics.txt");
    many.replace("Strikes: 25\t", "Strikes: 11125\t");
    const QString text = readSeasons({files.write("many.txt", many.toUtf8()), later}).text();
    const QStringList lines = text.section("Averages and Shares", 1).split('\n').mid(2, 6);
    const qsizetype second = lines.first().indexOf("Report 2");
    ASSERT_GT(second, 0);
    for (const QString& line : lines) {
        EXPECT_EQ(line.mid(second - 2, 2), "  ") << line.toStdString();
        EXPECT_NE(line.at(second), ' ') << line.toStdString();
    }
}

TEST_F(SeasonsSideBySideTest, LeavesThatCostMostComeFirst) {
    const ReportFigures last = readFigures(goldenReport("league.txt"));
    const std::vector<ReportPicture> pictures = readSeasons({earlier, later}).pictures();
    const PictureTable table = pictures.back().table({});
    int before = 1 << 20;
    for (const QStringList& row : table.rows) {
        const int lost = row.last().toInt();
        EXPECT_LE(lost, before);
        before = lost;
        const QString pins = row.first() == "All ten pins" ? QString("1-2-3-4-5-6-7-8-9-10") : row.first();
        const auto leave = std::ranges::find(last.leaves, pins, &LeaveFigures::pins);
        const int misses = leave == last.leaves.end() ? 0 : leave->attempts - leave->made;
        EXPECT_EQ(lost, misses * (1 + *last.strikes->firstBallAverage)) << row.join(' ').toStdString();
    }
}

}  // namespace tallybrook::test
