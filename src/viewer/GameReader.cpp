#include "viewer/FigureReaders.h"

#include <QList>
#include <algorithm>

namespace tallybrook {

namespace {

constexpr QStringView kColumnGap = u"   ";

/// What stands above the marks of a line score.
constexpr Heading kNumbers{u"1\t2\t3\t4\t5\t6\t7\t8\t9\t10", 0, true};

/// Whether a line below the heading of a line score stands before the marks: its hyphens, its numbers, or
/// what newer reports tell there behind a label.
bool isBeforeMarks(QStringView line) {
    return line.isEmpty() || line.startsWith(u"---") || line.startsWith(kNumbers.text) || line.contains(':');
}

/// Whether a line has the marks of frames: cells parted by tabs, or a single one with its balls.
bool hasMarks(QStringView line) {
    constexpr qsizetype kMostBalls = 3;
    return line.contains('\t') || line.trimmed().size() <= kMostBalls;
}

SheetMarks marksIn(QStringView line) {
    SheetMarks marks;
    const QList<QStringView> cells = line.split('\t');
    const auto count = std::min(cells.size(), static_cast<qsizetype>(marks.size()));
    std::ranges::transform(cells.first(count), marks.begin(),
                           [](QStringView cell) { return cell.trimmed().toString(); });
    return marks;
}

std::optional<SheetMarks> framesIn(const ReportLines& lines) {
    const ReportLines belowHeading = lines.below(heading::kSheet);
    const ReportLines sheet = belowHeading.count() > 0 ? belowHeading : lines.below(kNumbers);
    const auto line = std::ranges::find_if_not(sheet, isBeforeMarks);
    return line != sheet.end() && hasMarks(*line) ? std::optional(marksIn(*line)) : std::nullopt;
}

/// The line that a game of an event report begins with, as in "Game 2   Game Score: 117   Starting Lane: 27".
std::optional<GameFigures> gameIn(QStringView line) {
    const Field game = column(line, u"Game ", kColumnGap);
    const Field score = column(line, u"Game Score:", kColumnGap);
    if (!line.startsWith(u"Game ") || !countIn(game) || !column(line, u"Starting Lane:", kColumnGap))
        return std::nullopt;
    return GameFigures{game->toString(), score.value_or(QStringView()).toString(), std::nullopt};
}

/// The lines of a game up to its frames one by one, or to the next game. That one's own line may have been
/// left out, but not the lane condition below it as well.
ReportLines linesOfGame(const ReportLines& below) {
    int conditions = 0;
    std::size_t end = 0;
    for (; end < below.count() && conditions < 2; ++end) {
        if (gameIn(below.at(end)) || below.isAt(end, heading::kFrames))
            break;
        conditions += behind(u"Lane Condition:", below.at(end)) ? 1 : 0;
    }
    return below.between(0, end);
}

/// The number of a game in the line above it, as in "----- Game Information (Game #2) -----".
QStringView numberAbove(const ReportLines& report) {
    const QStringView rest = report.field(heading::kGame.text).value_or(QStringView());
    return rest.first(std::max(rest.indexOf(')'), qsizetype{0}));
}

}  // namespace

std::vector<GameFigures> gamesOfEvent(const ReportLines& report) {
    const ReportLines lines = report.above(heading::kStrikes);
    std::vector<GameFigures> games;
    for (std::size_t index = 0; index < lines.count(); ++index) {
        std::optional<GameFigures> game = gameIn(lines.at(index));
        if (!game)
            continue;
        game->frames = framesIn(linesOfGame(lines.between(index + 1, lines.count())));
        games.push_back(*std::move(game));
    }
    return games;
}

std::vector<GameFigures> gameOfReport(const ReportLines& report) {
    const ReportLines belowHeading = report.below(heading::kGame);
    const ReportLines lines = belowHeading.count() > 0 ? belowHeading : report;
    const QStringView number = lines.field(u"Game:").value_or(numberAbove(report));
    const QStringView score = lines.field(u"Game Score:").value_or(QStringView());
    std::optional<SheetMarks> frames = framesIn(lines);
    if (frames == SheetMarks())
        frames.reset();
    if (number.isEmpty())
        return {};
    return {{number.toString(), score.toString(), std::move(frames)}};
}

}  // namespace tallybrook
