#include "pictures/Pictures.h"
#include "readers/Golden.h"
#include "readers/Mutations.h"

#include <algorithm>
#include <map>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace tallybrook::test {

namespace {

ReportPicture pictureOf(const QString& report, const QString& name) {
    const std::vector<ReportPicture> pictures = picturesOf(readFigures(report));
    const auto found = std::ranges::find(pictures, name, &ReportPicture::name);
    return found == pictures.end() ? ReportPicture() : *found;
}

/// A report of one game with what its frames left.
QString gameOf(const QString& frames, const QString& marks) {
    QString report = kGameReport;
    report.replace("Frame: 1\tLane: 28\n", frames);
    report.replace("81\t0/\t8/\t90\t9/\t80\t09\t90\tX\tX8/\t", marks);
    return report;
}

QString frameOf(int number, const QString& balls) {
    return QString(
               "Frame: %1\tLane: 28\nBall Used: \tFoot Position: \tLane Target: \nFirst Ball\tSecond "
               "Ball\tFill Ball\n"
               "----------\t-----------\t---------\n%2\nComment: \n*\n")
        .arg(number)
        .arg(balls);
}

}  // namespace

TEST(CostPicture, NightIsCountedFrameByFrame) {
    const ReportPicture picture = pictureOf(goldenReport("full.txt"), "Where the pins went");
    EXPECT_EQ(picture.summary,
              "Game 2: 117 of 161, 44 pins lost (frame 1: 1, frame 4: 10, frame 6: 2, frame 7: 10, frame 8: "
              "10, frame 9: "
              "10, frame 10: 1).");
    const PictureTable table = picture.table({});
    ASSERT_EQ(table.rows.size(), 10U);
    EXPECT_EQ(table.rows[0], (QStringList{"Game 2, frame 1", "1", "81", "1-9"}));
    EXPECT_EQ(table.rows[6], (QStringList{"Game 2, frame 7", "10", "09", "1-2-3-4-5-6-7-8-9-10"}));
}

TEST(CostPicture, AllGamesTellWhatOneLosesToADecimal) {
    ReportFigures figures = readFigures(kGameReport);
    figures.games.push_back(figures.games.front());
    figures.games.back().frames->front() = "80";  // and one pin more is lost than with 81
    EXPECT_TRUE(costsPicture(figures.games).summary.contains(" All games: 69 pins lost, 34.5 a game "));
}

TEST(CostPicture, LeavesAddUpToTheSame) {
    const PictureTable leaves = pictureOf(goldenReport("full.txt"), "Leaves that cost most").table({});
    int sum = 0;
    for (const QStringList& row : leaves.rows)
        sum += row[1].toInt();
    EXPECT_EQ(sum, 44);
    EXPECT_EQ(leaves.rows[0], (QStringList{"7", "11", "2"}));
}

TEST(CostPicture, SummaryTellsFramesAlone) {
    EXPECT_FALSE(pictureOf(goldenReport("summary.txt"), "Where the pins went").name.isEmpty());
    EXPECT_TRUE(pictureOf(goldenReport("summary.txt"), "Leaves that cost most").name.isEmpty());
}

TEST(CostPicture, GameReportTellsItsLeaves) {
    const QString report = gameOf(frameOf(1, "3-6-10\t\t10") + frameOf(10, "X\t\t7-10\t\t7"),
                                  "72\tX\tX\tX\tX\tX\tX\tX\tX\tX81\t");
    const PictureTable leaves = pictureOf(report, "Leaves that cost most").table({});
    ASSERT_EQ(leaves.rows.size(), 2U);
    EXPECT_EQ(leaves.rows[0], (QStringList{"3-6-10", "11", "1"}));
    EXPECT_EQ(leaves.rows[1], (QStringList{"7-10", "1", "1"}));
}

TEST(CostPicture, CommentsTellNoBalls) {
    QString report = goldenReport("full.txt");
    report.replace("Comment: tab here", "Comment: \nFirst Ball: 7-10   Second Ball: 7-10");
    EXPECT_EQ(pictureOf(report, "Leaves that cost most").table({}).rows,
              pictureOf(goldenReport("full.txt"), "Leaves that cost most").table({}).rows);
}

/// Games of an event: the sum of all frames is what the games lack to clean ones.
RC_GTEST_PROP(CostPicture, AnyReportAddsUp, ()) {
    const QString report = mutatedReport();
    const std::vector<RecordedGame> games = recordedGames(readFigures(report).games);
    int lost = 0;
    for (const RecordedGame& game : games) {
        if (const auto costs = costsOf(game.cells))
            lost += costs->cleanScore() - costs->score;
    }
    int ofLeaves = 0;
    for (const LeaveCost& leave : leaveCosts(games))
        ofLeaves += leave.pins;
    RC_ASSERT(lost == ofLeaves);
}

}  // namespace tallybrook::test
