#include "pictures/Pictures.h"
#include "readers/Days.h"
#include "readers/Golden.h"

#include <QStringList>
#include <algorithm>
#include <vector>

#include <gtest/gtest.h>

// Reports of other times: with lines that today's do not have, or without some of theirs.
namespace tallybrook::test {

namespace {

struct Report {
    const char* name;
    QString text;
};

std::vector<Report> reports() {
    std::vector<Report> all{{"a game", kGameReport}};
    for (const char* const name : {"statistics.txt", "league.txt", "full.txt", "summary.txt"})
        all.push_back({name, goldenReport(name)});
    return all;
}

QString without(const QString& text, const QString& line) {
    QStringList lines = text.split('\n');
    EXPECT_TRUE(lines.removeOne(line)) << line.toStdString();
    return lines.join('\n');
}

QString with(const QString& added, QStringList lines, qsizetype at) {
    lines.insert(at, added);
    return lines.join('\n');
}

/// A figure as a report writes it, in one or more pieces that stand in different lines.
using Fact = QStringList;

void addScores(const ScoreFigures& scores, std::vector<Fact>& facts) {
    for (const ScoreRange& range : scores.ranges) {
        const QString label = range.lowest == 0               ? QString("Games under 100")
                              : range.lowest == range.highest ? range.label + " Games"
                                                              : range.label;
        facts.push_back({label + QString(": %1").arg(range.games)});
    }
    for (const auto& [label, end] : {std::pair("High", scores.high), std::pair("Low", scores.low)}) {
        if (end)
            facts.push_back(
                {QString("%1 Game: %2 Date Bowled: %3").arg(label).arg(end->score).arg(end->date)});
    }
}

void addSeries(const SeriesFigures& series, std::vector<Fact>& facts) {
    for (const auto& [label, end] : {std::pair("High", series.high), std::pair("Low", series.low)}) {
        if (!end)
            continue;
        const QString line = QString("%1 Series (%2 games): %3").arg(label).arg(series.games).arg(end->score);
        facts.push_back({line});
        if (!end->date.isEmpty())
            facts.push_back({line, "Date Bowled: " + end->date});
    }
}

void addStrikes(const StrikeFigures& strikes, std::vector<Fact>& facts) {
    const auto add = [&](const QString& form, std::optional<int> count) {
        if (count)
            facts.push_back({form.arg(*count)});
    };
    add("Strikes: %1 ", strikes.strikes);
    add("Spares: %1 ", strikes.spares);
    add("Open Frames: %1 ", strikes.opens);
    add("%1 games recorded in 'Line Score' mode", strikes.lineScoreGames);
    add("First Ball Average: %1", strikes.firstBallAverage);
    if (!strikes.strikePercent.isEmpty())
        facts.push_back({"Strike Percentage: " + strikes.strikePercent + "%"});
    if (!strikes.sparePercent.isEmpty())
        facts.push_back({"Spare Percentage: " + strikes.sparePercent + "%"});
    if (strikes.singlePins)
        facts.push_back({QString("Attempts: %1 Conversions: %2")
                             .arg(strikes.singlePins->attempts)
                             .arg(strikes.singlePins->made)});
}

void addGame(const GameFigures& game, std::vector<Fact>& facts) {
    facts.push_back({"Game " + game.number + " ", "Game: " + game.number + " "});
    if (!game.score.isEmpty())
        facts.push_back({"Game Score: " + game.score});
    if (game.frames)
        facts.push_back(
            {"Game " + game.number + " ", QStringList(game.frames->begin(), game.frames->end()).join(' ')});
}

void addEvent(const BowledEvent& event, std::vector<Fact>& facts) {
    const QString line =
        QString("Event: %1 Date Bowled: %2").arg(QString::fromStdString(event.name), dayText(event.date));
    facts.push_back({line, QString("Pinfall: %1 Event Average: %2 ").arg(event.pinfall).arg(event.average)});
    if (!event.type.empty())
        facts.push_back({line, "Event Type: " + QString::fromStdString(event.type),
                         QString("Pinfall: %1 ").arg(event.pinfall)});
}

/// All that is read from a report.
std::vector<Fact> factsOf(const QString& report) {
    const ReportFigures figures = readFigures(report);
    std::vector<Fact> facts;
    if (figures.scores)
        addScores(*figures.scores, facts);
    for (const SeriesFigures& series : figures.series)
        addSeries(series, facts);
    if (figures.strikes)
        addStrikes(*figures.strikes, facts);
    for (const LeaveFigures& leave : figures.leaves)
        facts.push_back({QString("%1 %2 %3 ").arg(leave.pins).arg(leave.attempts).arg(leave.made)});
    for (const GameFigures& game : figures.games)
        addGame(game, facts);
    for (const BowledEvent& event : figures.events.bowled)
        addEvent(event, facts);
    return facts;
}

bool holdsPieceOf(const QString& line, const Fact& fact) {
    return std::ranges::any_of(
        fact, [&](const QString& piece) { return (line.simplified() + " ").contains(piece); });
}

}  // namespace

// --- Newer reports -----------------------------------------------------------------------------------------

TEST(OtherReports, NewLinesAreNoMatter) {
    for (const Report& report : reports()) {
        const ReportFigures figures = readFigures(report.text);
        const QStringList lines = report.text.split('\n');
        for (const char* const added : {"Clean Games: 3", "Games over 200: 4\t\tAvg / Game: 1",
                                        "Lane Oil: fresh   Ball Speed: 17", ""}) {
            for (qsizetype at = 1; at < lines.size(); ++at)
                EXPECT_EQ(readFigures(with(added, lines, at)), figures)
                    << added << " above line " << at + 1 << " of " << report.name;
        }
    }
}

TEST(OtherReports, NewBlocksAreNoMatter) {
    const QString block = "\nSplit Spares\n------------\nAttempts: 8\t\tConversions: 1\tPercentage: 12.5%\n";
    for (const Report& report : reports()) {
        const ReportFigures figures = readFigures(report.text);
        const QStringList lines = report.text.split('\n');
        for (qsizetype at = 1; at < lines.size(); ++at) {
            if (!lines[at].isEmpty())
                continue;
            EXPECT_EQ(readFigures(with(block, lines, at)), figures)
                << "above line " << at + 1 << " of " << report.name;
        }
    }
}

TEST(OtherReports, SumBelowTheLeavesIsNone) {
    const QString report = goldenReport("statistics.txt");
    const QString sum = "All leaves               130               55              42.31%\t8.1\n";
    EXPECT_EQ(readFigures(report + sum), readFigures(report));
}

// --- Older reports -----------------------------------------------------------------------------------------

TEST(OtherReports, LineThatIsMissingTakesOnlyItsOwnFigures) {
    for (const Report& report : reports()) {
        const std::vector<Fact> all = factsOf(report.text);
        const QStringList lines = report.text.split('\n');
        for (qsizetype at = 0; at < lines.size(); ++at) {
            QStringList others = lines;
            others.removeAt(at);
            const std::vector<Fact> left = factsOf(others.join('\n'));
            for (const Fact& fact : left)
                EXPECT_TRUE(std::ranges::count(all, fact) > 0)
                    << fact.join(" | ").toStdString() << " without line " << at + 1 << " of " << report.name;
            for (const Fact& fact : all)
                EXPECT_TRUE(std::ranges::count(left, fact) > 0 || holdsPieceOf(lines[at], fact))
                    << fact.join(" | ").toStdString() << " without line " << at + 1 << " of " << report.name;
        }
    }
}

TEST(OtherReports, GameWithoutItsLineLeavesNoFramesToAnother) {
    const QString report = without(goldenReport("summary.txt"),
                                   "Game 2   Game Score: 117   Lane Pair: 27-28   Starting Lane: 27");
    const ReportFigures figures = readFigures(report);
    ASSERT_EQ(figures.games.size(), 1U);
    EXPECT_EQ(figures.games[0].number, "1");
    EXPECT_FALSE(figures.games[0].frames);
}

TEST(OtherReports, BlockThatIsMissingHasNoPicture) {
    const QString report = goldenReport("statistics.txt");
    const QString strikes = report.section("Strike / Spare Summary Statistics", 0, 0);
    const ReportFigures figures = readFigures(strikes);
    EXPECT_EQ(figures.scores, readFigures(report).scores);
    EXPECT_EQ(figures.series, readFigures(report).series);
    EXPECT_FALSE(figures.strikes);
    EXPECT_TRUE(figures.leaves.empty());
}

// --- Their pictures ----------------------------------------------------------------------------------------

TEST(OtherReports, PicturesLeaveOutWhatIsMissing) {
    const auto summary = [](const QString& line, const QString& name) {
        const auto pictures = picturesOf(readFigures(without(goldenReport("statistics.txt"), line)));
        return std::ranges::find(pictures, name, &ReportPicture::name)->summary;
    };
    EXPECT_TRUE(summary("120 - 139: 11", "Scores of the games")
                    .startsWith("Under 100: 1 game. 100 - 119: 8 games. 140 - 159: "));
    EXPECT_TRUE(summary("High Game: 172\tDate Bowled: 10/23/2024", "Scores of the games")
                    .endsWith("160 - 179: 6 games. Low game 99 on 11/21/2024"));
    EXPECT_TRUE(summary("High Series (1 games): 146", "High and low series")
                    .startsWith("Series of 1 game: low 0 on 9/13/2024. Series of 2 games: high 242"));
    EXPECT_TRUE(summary("Date Bowled: 9/13/2024", "High and low series")
                    .startsWith("Series of 1 game: high 146 on 11/14/2024, low 0. Series of 2 games"));
    EXPECT_EQ(
        summary("Open Frames: 195\tAvg / Game: 7", "Strikes, spares and open frames"),
        "Strikes: 25 (9.2% of first balls). Spares: 47 (19.4% of spare chances). Frames recorded as line "
        "scores count as open. Single pin spares: 30 of 90 made. First ball average: 7 pins.");
}

TEST(OtherReports, ScoreOfAGameThatIsMissingIsNotTheLowest) {
    const std::vector<GameFigures> games{{"1", "187", {}}, {"2", "", {}}, {"3", "201", {}}};
    for (const ReportPicture& picture : picturesOf({games, {}, {}, {}, {}}))
        EXPECT_EQ(picture.summary, "There are no frames in the report.");
}

}  // namespace tallybrook::test
