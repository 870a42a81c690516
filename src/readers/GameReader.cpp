#include "readers/FigureReaders.h"

#include <QList>
#include <algorithm>
#include <array>

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

/// Whether a text is what a report tells of a ball: pins, a strike or a spare, or nothing.
bool isBall(QStringView text) {
    return std::ranges::all_of(
        text, [](QChar one) { return one.isDigit() || one == '-' || one == 'X' || one == '/'; });
}

/// The balls of a frame in a full event report, as in "First Ball: 1-9   Second Ball: 9".
std::optional<QList<QStringView>> labelledBalls(QStringView line) {
    const Field first = column(line, u"First Ball:", kColumnGap);
    const Field second = column(line, u"Second Ball:", kColumnGap);
    return first && second ? std::optional(QList<QStringView>{*first, *second}) : std::nullopt;
}

/// The balls of a frame in a game report: parted by two tabs.
std::optional<QList<QStringView>> tabbedBalls(QStringView line) {
    QList<QStringView> balls = line.split(u"\t\t");
    if (balls.size() < 2 || !std::ranges::all_of(balls, isBall))
        return std::nullopt;
    return balls;
}

/// How a kind of report tells its frames one by one.
struct FrameForm {
    QStringView label;      ///< before the number of a frame
    QStringView separator;  ///< of the columns in its line
    QStringView lane;       ///< the label of the next column
    std::optional<QList<QStringView>> (*ballsIn)(QStringView line);
};

constexpr FrameForm kEventFrames{u"Frame ", kColumnGap, u"Lane Bowled:", labelledBalls};
constexpr FrameForm kGameFrames{u"Frame:", u"\t", u"Lane:", tabbedBalls};

/// The number of the frame, from 0, that is told from a line on.
std::optional<std::size_t> frameAt(QStringView line, const FrameForm& form) {
    const std::optional<int> number = countIn(column(line, form.label, form.separator));
    const bool isFrame = number && *number >= 1 && *number <= kFrames && line.startsWith(form.label) &&
                         column(line, form.lane, form.separator);
    return isFrame ? std::optional(static_cast<std::size_t>(*number - 1)) : std::nullopt;
}

/// The pins that a spare was open on: those that the first ball left, in the tenth frame on the second rack.
QString leaveOf(std::size_t frame, const QList<QStringView>& balls) {
    const bool isBehindStrike = frame == kSheetFrames - 1 && balls[0] == u"X";
    const QStringView left = balls[isBehindStrike ? 1 : 0];
    return left.contains('X') || left.contains('/') ? QString() : left.toString();
}

/// The leaves of the frames that are told in lines. The first word on a frame counts: what a bowler wrote of
/// it stands below.
SheetMarks leavesOf(const ReportLines& lines, const FrameForm& form) {
    SheetMarks leaves;
    std::array<bool, kSheetFrames> isTold{};
    std::optional<std::size_t> frame;
    for (const QStringView line : lines) {
        if (const auto next = frameAt(line, form))
            frame = next;
        const auto balls = frame && !isTold[*frame] ? form.ballsIn(line) : std::nullopt;
        if (!balls)
            continue;
        leaves[*frame] = leaveOf(*frame, *balls);
        isTold[*frame] = true;
    }
    return leaves;
}

/// The lines of a game, up to the next one. That one's own line may have been left out, but not the lane
/// condition below it as well.
ReportLines linesOfGame(const ReportLines& below) {
    int conditions = 0;
    std::size_t end = 0;
    for (; end < below.count() && conditions < 2; ++end) {
        if (gameIn(below.at(end)))
            break;
        conditions += behind(u"Lane Condition:", below.at(end)) ? 1 : 0;
    }
    return below.between(0, end);
}

/// The lines of a game before its frames are told one by one.
ReportLines beforeFrames(const ReportLines& game) {
    std::size_t end = 0;
    while (end < game.count() && !game.isAt(end, heading::kFrames))
        ++end;
    return game.between(0, end);
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
        const ReportLines own = linesOfGame(lines.between(index + 1, lines.count()));
        game->frames = framesIn(beforeFrames(own));
        game->leaves = leavesOf(own, kEventFrames);
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
    return {{number.toString(), score.toString(), std::move(frames), leavesOf(lines, kGameFrames)}};
}

}  // namespace tallybrook
