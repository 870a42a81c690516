#include "viewer/ReportFigures.h"

#include <QList>
#include <QStringView>
#include <algorithm>
#include <array>

namespace tallybrook {

namespace {

/// No report is that long, and what is should not be read twice.
constexpr qsizetype kLongestPictured = qsizetype{32} * 1024 * 1024;

struct RangeLine {
    const char16_t* label;
    const char16_t* shown;
    int lowest;
    int highest;
};

// clang-format off
constexpr std::array<RangeLine, 14> kRangeLines{{
    {u"Games under 100:", u"Under 100", 0, 99},
    {u"100 - 119:", u"100 - 119", 100, 119}, {u"120 - 139:", u"120 - 139", 120, 139},
    {u"140 - 159:", u"140 - 159", 140, 159}, {u"160 - 179:", u"160 - 179", 160, 179},
    {u"180 - 199:", u"180 - 199", 180, 199}, {u"200 - 219:", u"200 - 219", 200, 219},
    {u"220 - 239:", u"220 - 239", 220, 239}, {u"240 - 259:", u"240 - 259", 240, 259},
    {u"260 - 279:", u"260 - 279", 260, 279}, {u"280 - 297:", u"280 - 297", 280, 297},
    {u"298 Games:", u"298", 298, 298},       {u"299 Games:", u"299", 299, 299},
    {u"300 Games:", u"300", 300, 300},
}};
// clang-format on

using Field = std::optional<QStringView>;

/// What stands behind a label at the beginning of a text; nothing where it begins otherwise.
Field behind(QStringView label, QStringView text) {
    if (!text.startsWith(label))
        return std::nullopt;
    return text.sliced(label.size()).trimmed();
}

/// What stands behind a label in one of the columns of a line.
Field column(QStringView line, QStringView label, QStringView separator = u"\t") {
    for (const QStringView part : line.split(separator)) {
        if (const Field field = behind(label, part))
            return field;
    }
    return std::nullopt;
}

std::optional<int> number(const Field& field) {
    bool isNumber = false;
    const int value = field ? field->toInt(&isNumber) : 0;
    return isNumber ? std::optional(value) : std::nullopt;
}

/// A number that counts something.
std::optional<int> countIn(const Field& field) {
    const std::optional<int> count = number(field);
    return count && *count >= 0 ? count : std::nullopt;
}

/// The text of a percentage, without its sign.
QString percentIn(const Field& field) {
    return field && field->endsWith('%') ? field->chopped(1).toString() : QString();
}

/// The lines of a report.
class Lines {
public:
    explicit Lines(const QString& text) : lines_(QStringView(text).split('\n')) {}

    [[nodiscard]] qsizetype count() const { return lines_.size(); }
    /// A line; an empty one beyond the text.
    [[nodiscard]] QStringView at(qsizetype index) const {
        return index >= 0 && index < count() ? lines_[index] : QStringView();
    }
    /// The last line that is this heading with the next one below it, since what a bowler wrote stands before
    /// the figures; the number of lines where there is none.
    [[nodiscard]] qsizetype lastHeading(QStringView heading, QStringView below) const {
        for (qsizetype index = count() - 1; index >= 0; --index) {
            if (at(index).startsWith(heading) && at(index + 1).startsWith(below))
                return index;
        }
        return count();
    }

private:
    QList<QStringView> lines_;
};

// --- Statistics --------------------------------------------------------------------------------------------

/// A score with its day, as in "High Game: 172", tab, "Date Bowled: 10/23/2024". Without a day there was
/// none.
std::optional<DatedScore> datedScore(const std::optional<int>& score, const Field& date) {
    if (!score || !date || date->isEmpty() || *date == u"12:00:00 AM")
        return std::nullopt;
    return DatedScore{*score, date->toString()};
}

std::optional<ScoreFigures> scoresIn(const Lines& lines) {
    qsizetype at = lines.lastHeading(u"Game Statistics", u"---------------") + 2;
    ScoreFigures scores;
    for (const RangeLine& range : kRangeLines) {
        const std::optional<int> games = countIn(behind(range.label, lines.at(at++)));
        if (!games)
            return std::nullopt;
        scores.ranges.push_back({QString::fromUtf16(range.shown), range.lowest, range.highest, *games});
    }
    const QStringView high = lines.at(at + 1);
    const QStringView low = lines.at(at + 2);
    scores.high = datedScore(number(column(high, u"High Game:")), column(high, u"Date Bowled:"));
    scores.low = datedScore(number(column(low, u"Low Game:")), column(low, u"Date Bowled:"));
    return scores;
}

/// The two lines of one series, as in "High Series (3 games): 331" and "Date Bowled: 11/6/2024".
std::optional<DatedScore> seriesAt(const Lines& lines, qsizetype at, QStringView label, int& games) {
    const Field series = behind(label, lines.at(at));
    const qsizetype end = series ? series->indexOf(u" games):") : -1;
    if (end < 0)
        return std::nullopt;
    games = countIn(series->first(end)).value_or(0);
    return datedScore(number(behind(u" games):", series->sliced(end))),
                      behind(u"Date Bowled:", lines.at(at + 1)));
}

std::vector<SeriesFigures> seriesIn(const Lines& lines) {
    std::vector<SeriesFigures> all;
    constexpr qsizetype kLinesOfSeries = 4;
    for (qsizetype at = lines.lastHeading(u"Series Summary", u"--------------") + 2;; at += kLinesOfSeries) {
        int games = 0;
        const auto high = seriesAt(lines, at, u"High Series (", games);
        const auto low = seriesAt(lines, at + 2, u"Low Series (", games);
        if (!high || !low || games < 1)
            return all;
        all.push_back({games, *high, *low});
    }
}

// --- Strikes, spares and leaves ----------------------------------------------------------------------------

qsizetype beginOfStrikes(const Lines& lines) {
    return lines.lastHeading(u"Strike / Spare Summary Statistics", u"-----");
}

/// Takes the last word off a text.
QStringView takeLastWord(QStringView& text) {
    text = text.trimmed();
    const qsizetype blank = text.lastIndexOf(' ');
    const QStringView word = text.sliced(blank + 1);
    text = text.first(std::max(blank, qsizetype{0}));
    return word;
}

/// The number in the line on the modes, as in "11 games recorded in 'Line Score' mode".
int lineScoreGamesIn(QStringView modes) {
    const qsizetype end = modes.indexOf(u" games recorded in 'Line Score' mode");
    QStringView before = modes.first(std::max(end, qsizetype{0}));
    return countIn(takeLastWord(before)).value_or(0);
}

std::optional<StrikeFigures> strikesIn(const Lines& lines) {
    const qsizetype begin = beginOfStrikes(lines);
    const QStringView modes = lines.at(begin + 2);
    const QStringView strikes = lines.at(begin + 4);
    const QStringView spares = lines.at(begin + 6);
    const QStringView singlePins = lines.at(begin + 12);
    const auto struck = countIn(column(strikes, u"Strikes:"));
    const auto spared = countIn(column(spares, u"Spares:"));
    const auto open = countIn(column(lines.at(begin + 8), u"Open Frames:"));
    if (!struck || !spared || !open)
        return std::nullopt;
    return StrikeFigures{*struck,
                         percentIn(column(strikes, u"Strike Percentage:")),
                         *spared,
                         percentIn(column(spares, u"Spare Percentage:")),
                         *open,
                         lineScoreGamesIn(modes),
                         countIn(column(singlePins, u"Attempts:")),
                         countIn(column(singlePins, u"Conversions:")).value_or(0),
                         countIn(behind(u"First Ball Average:", lines.at(begin + 14)))};
}

/// A row of the matrix: pins, attempts, conversions and percentage, parted by blanks, and behind a tab the
/// attempts of a game. It is read from its end, since anything may stand for the pins.
std::optional<LeaveFigures> leaveIn(QStringView line) {
    const qsizetype percent = line.lastIndexOf(u"%\t");
    if (percent < 0)
        return std::nullopt;
    QStringView rest = line.first(percent);
    takeLastWord(rest);
    const std::optional<int> made = countIn(takeLastWord(rest));
    const std::optional<int> attempts = countIn(takeLastWord(rest));
    if (!made || !attempts || *made > *attempts)
        return std::nullopt;
    const QString pins = rest.trimmed().toString();
    return LeaveFigures{pins, standingPins(pins), *attempts, *made};
}

std::vector<LeaveFigures> leavesIn(const Lines& lines) {
    std::vector<LeaveFigures> leaves;
    const qsizetype heading = lines.lastHeading(u"Spare Statistics (based on ", u"-----");
    constexpr qsizetype kLinesOfHeading = 6;
    for (qsizetype at = heading + kLinesOfHeading; at < lines.count(); ++at) {
        if (std::optional<LeaveFigures> leave = leaveIn(lines.at(at)))
            leaves.push_back(*std::move(leave));
    }
    std::ranges::stable_sort(leaves, std::ranges::greater(), &LeaveFigures::attempts);
    return leaves;
}

// --- Games -------------------------------------------------------------------------------------------------

SheetMarks marksIn(QStringView line) {
    SheetMarks marks;
    const QList<QStringView> cells = line.split('\t');
    const auto count = std::min(cells.size(), static_cast<qsizetype>(marks.size()));
    std::ranges::transform(cells.first(count), marks.begin(),
                           [](QStringView cell) { return cell.trimmed().toString(); });
    return marks;
}

/// The marks below the heading of a line score that stands in these lines.
std::optional<SheetMarks> framesIn(const Lines& lines, qsizetype begin, qsizetype end) {
    for (qsizetype at = begin; at < end; ++at) {
        if (lines.at(at) == u"Line Score:" && lines.at(at + 2).startsWith(u"1\t2\t3\t"))
            return marksIn(lines.at(at + 3));
    }
    return std::nullopt;
}

/// The line that a game of an event report begins with, as in "Game 2   Game Score: 117   Lane Pair: 27-28".
std::optional<GameFigures> gameIn(QStringView line) {
    const Field game = column(line, u"Game ", u"   ");
    const Field score = column(line, u"Game Score:", u"   ");
    if (!line.startsWith(u"Game ") || !countIn(game) || !score || !line.contains(u"   Starting Lane:"))
        return std::nullopt;
    return GameFigures{game->toString(), score->toString(), std::nullopt};
}

std::vector<GameFigures> gamesOfEvent(const Lines& lines) {
    std::vector<GameFigures> games;
    qsizetype end = beginOfStrikes(lines);
    for (qsizetype at = end - 1; at >= 0; --at) {
        std::optional<GameFigures> game = gameIn(lines.at(at));
        if (!game)
            continue;
        game->frames = framesIn(lines, at, end);
        games.push_back(*std::move(game));
        end = at;
    }
    std::ranges::reverse(games);
    return games;
}

/// A report of one game has its line score behind all frames, with no line below the heading.
std::vector<GameFigures> gameOfReport(const Lines& lines) {
    const qsizetype heading = lines.lastHeading(u"----- Game Information (Game #", u"Game: ");
    const Field game = column(lines.at(heading + 1), u"Game:");
    const Field score = column(lines.at(heading + 1), u"Game Score:");
    if (!game || !score)
        return {};
    const qsizetype sheet = lines.lastHeading(u"Line Score:", u"1\t2\t3\t");
    const SheetMarks marks = marksIn(lines.at(sheet + 2));
    const bool hasMarks = !std::ranges::all_of(marks, &QString::isEmpty);
    return {{game->toString(), score->toString(), hasMarks ? std::optional(marks) : std::nullopt}};
}

// --- Kinds of reports --------------------------------------------------------------------------------------

ReportFigures figuresOfEvent(const Lines& lines) {
    return {gamesOfEvent(lines), std::nullopt, {}, strikesIn(lines), leavesIn(lines)};
}

ReportFigures figuresOfStatistics(const Lines& lines) {
    return {{}, scoresIn(lines), seriesIn(lines), strikesIn(lines), leavesIn(lines)};
}

ReportFigures figuresOfGame(const Lines& lines) {
    return {gameOfReport(lines), std::nullopt, {}, std::nullopt, {}};
}

using Reader = ReportFigures (*)(const Lines& lines);

struct Kind {
    const char16_t* first;   ///< what the first line begins with
    const char16_t* second;  ///< and the second one
    Reader read;
};

constexpr std::array<Kind, 3> kKinds{{
    {u"Tallybrook ", u"Event Report - ", figuresOfEvent},
    {u"Tallybrook ", u"Statistical Report", figuresOfStatistics},
    {u"Report Date: ", u"Event Information", figuresOfGame},
}};

/// How a report is read that begins with a text; nothing for any other text.
Reader readerOf(const QString& text) {
    const QStringView begin = QStringView(text).first(std::min(text.size(), qsizetype{200}));
    const QList<QStringView> lines = begin.split('\n');
    if (lines.size() < 2)
        return nullptr;
    const auto* const kind = std::ranges::find_if(kKinds, [&](const Kind& one) {
        return lines[0].trimmed().startsWith(one.first) && lines[1].trimmed().startsWith(one.second);
    });
    return kind == kKinds.end() ? nullptr : kind->read;
}

}  // namespace

bool ReportFigures::isEmpty() const {
    return games.empty() && !scores && series.empty() && !strikes && leaves.empty();
}

std::optional<std::bitset<10>> standingPins(const QString& list) {
    std::bitset<10> standing;
    for (const QStringView pin : QStringView(list).split('-')) {
        const std::optional<int> index = number(pin);
        if (!index || *index < 1 || *index > 10)
            return std::nullopt;
        standing.set(static_cast<std::size_t>(*index - 1));
    }
    return standing;
}

ReportFigures readFigures(const QString& text) {
    const Reader read = text.size() > kLongestPictured ? nullptr : readerOf(text);
    return read == nullptr ? ReportFigures() : read(Lines(text));
}

}  // namespace tallybrook
