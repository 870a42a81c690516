// The figures of each report of the season, and what becomes of them when one of its lines is left out: a
// heading or the hyphens below it are enough to find a block, and of all else only what the line told goes
// missing. figures.txt is written anew, to be read before it is kept, with TALLYBROOK_WRITE_EXPECTED.

#include "Golden.h"
#include "readers/Days.h"
#include "readers/ReportFigures.h"
#include "support/SameText.h"

#include <QStringList>
#include <cstdlib>
#include <fstream>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

QString told(const std::optional<DatedScore>& score) {
    return score ? QString(R"(%1 on "%2")").arg(score->score).arg(score->date) : "none";
}

QString told(const std::optional<int>& number) {
    return number ? QString::number(*number) : "none";
}

QString told(const SheetMarks& marks) {
    return QStringList(marks.begin(), marks.end()).join("|");
}

void tellGames(const std::vector<GameFigures>& games, QStringList& lines) {
    for (const GameFigures& game : games)
        lines +=
            QString(R"(game "%1": "%2", frames %3, leaves %4)")
                .arg(game.number, game.score, game.frames ? told(*game.frames) : "none", told(game.leaves));
}

void tellScores(const ReportFigures& figures, QStringList& lines) {
    if (figures.scores) {
        lines += "high game " + told(figures.scores->high) + ", low game " + told(figures.scores->low);
        for (const ScoreRange& range : figures.scores->ranges)
            lines += QString("%1 (%2 to %3): %4")
                         .arg(range.label)
                         .arg(range.lowest)
                         .arg(range.highest)
                         .arg(range.games);
    }
    for (const SeriesFigures& series : figures.series)
        lines += QString("series of %1: high %2, low %3")
                     .arg(series.games)
                     .arg(told(series.high), told(series.low));
}

void tellStrikes(const std::optional<StrikeFigures>& strikes, QStringList& lines) {
    if (!strikes)
        return;
    const auto pins = strikes->singlePins;
    lines +=
        {"strikes " + told(strikes->strikes) + " \"" + strikes->strikePercent + "\"",
         "spares " + told(strikes->spares) + " \"" + strikes->sparePercent + "\"",
         "opens " + told(strikes->opens) + ", line scores " + told(strikes->lineScoreGames) +
             ", first ball " + told(strikes->firstBallAverage),
         "single pins " + (pins ? QString("%1 of %2").arg(pins->made).arg(pins->attempts) : QString("none"))};
}

QStringList told(const ReportFigures& figures) {
    QStringList lines;
    tellGames(figures.games, lines);
    tellScores(figures, lines);
    tellStrikes(figures.strikes, lines);
    for (const LeaveFigures& leave : figures.leaves)
        lines += QString("leave \"%1\": %2 of %3").arg(leave.pins).arg(leave.made).arg(leave.attempts);
    for (const BowledEvent& event : figures.events.bowled)
        lines += QString(R"(event "%1", "%2", %3: %4 games, %5 pins, %6)")
                     .arg(QString::fromStdString(event.name), QString::fromStdString(event.type),
                          dayText(event.date))
                     .arg(event.games)
                     .arg(event.pinfall)
                     .arg(event.average);
    lines += QString("unscored events: %1").arg(figures.events.unscored);
    return lines;
}

/// The lines that another list does not have, each behind a mark.
QString missingIn(const QStringList& others, const QStringList& lines, const QString& mark) {
    QString text;
    for (const QString& line : lines) {
        if (!others.contains(line))
            text += mark + line + "\n";
    }
    return text;
}

/// What a report tells, and what it tells otherwise without one of its lines.
QString toldOf(const QString& name, const QString& report) {
    const QStringList whole = told(readFigures(report));
    QString text = "# " + name + "\n" + whole.join('\n') + "\n";
    const QStringList lines = report.split('\n');
    for (qsizetype line = 0; line < lines.size(); ++line) {
        QStringList rest = lines;
        rest.removeAt(line);
        const QStringList left = told(readFigures(rest.join('\n')));
        const QString changes = missingIn(left, whole, "  - ") + missingIn(whole, left, "  + ");
        if (!changes.isEmpty())
            text += "without line " + QString::number(line + 1) + ": " + lines[line].left(60).trimmed() +
                    "\n" + changes;
    }
    return text;
}

TEST(FiguresTold, AreThoseOfTheLinesThatAreThere) {
    QString text;
    for (const char* const name : {"statistics.txt", "league.txt", "full.txt", "summary.txt"})
        text += toldOf(name, goldenReport(name));
    text += toldOf("a game", kGameReport);
    const QString file = QString(TALLYBROOK_SOURCE_DIR) + "/tests/readers/figures.txt";
    if (std::getenv("TALLYBROOK_WRITE_EXPECTED") != nullptr)
        std::ofstream(file.toStdString(), std::ios::binary) << text.toStdString();
    EXPECT_TRUE(isSameText(text.toStdString(), bytesOf(file.toStdString())));
}

}  // namespace

}  // namespace tallybrook::test
