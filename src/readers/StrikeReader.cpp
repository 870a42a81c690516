#include "readers/FigureReaders.h"

#include <algorithm>
#include <array>

namespace tallybrook {

namespace {

struct CountLabel {
    QStringView label;
    std::optional<int> StrikeFigures::*place;
};

constexpr std::array<CountLabel, 4> kCounts{{
    {u"Strikes:", &StrikeFigures::strikes},
    {u"Spares:", &StrikeFigures::spares},
    {u"Open Frames:", &StrikeFigures::opens},
    {u"First Ball Average:", &StrikeFigures::firstBallAverage},
}};

struct PercentLabel {
    QStringView label;
    QString StrikeFigures::*place;
};

constexpr std::array<PercentLabel, 2> kPercents{{
    {u"Strike Percentage:", &StrikeFigures::strikePercent},
    {u"Spare Percentage:", &StrikeFigures::sparePercent},
}};

/// The number in the line on the modes, as in "11 games recorded in 'Line Score' mode".
std::optional<int> lineScoreGamesIn(const ReportLines& lines) {
    for (const QStringView line : lines) {
        const qsizetype end = line.indexOf(u" games recorded in 'Line Score' mode");
        QStringView before = line.first(std::max(end, qsizetype{0}));
        if (end >= 0)
            return countIn(takeLastWord(before));
    }
    return std::nullopt;
}

/// The single pins below their own heading: other blocks may tell of attempts too.
std::optional<SinglePins> singlePinsIn(const ReportLines& lines) {
    const ReportLines own = lines.below(heading::kSinglePins).beforeNextHeading();
    const std::optional<int> attempts = countIn(own.field(u"Attempts:"));
    const std::optional<int> made = countIn(own.field(u"Conversions:"));
    return attempts && made ? std::optional(SinglePins{*attempts, *made}) : std::nullopt;
}

bool hasFigures(const StrikeFigures& strikes) {
    return strikes.singlePins || std::ranges::any_of(kCounts, [&](const CountLabel& count) {
               return (strikes.*count.place).has_value();
           });
}

/// Sums below the rows have a word where the others have pins, whose only letter is the "X" of a strike.
bool isWord(QStringView pins) {
    return std::ranges::any_of(pins, [](QChar one) { return one.isLetter() && one != 'X'; });
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
    if (!made || !attempts || *made > *attempts || isWord(rest))
        return std::nullopt;
    const QString pins = rest.trimmed().toString();
    return LeaveFigures{pins, readPins(pins.toStdString()), *attempts, *made};
}

}  // namespace

std::optional<StrikeFigures> strikesIn(const ReportLines& report) {
    const ReportLines lines = report.below(heading::kStrikes);
    StrikeFigures strikes;
    for (const CountLabel& count : kCounts)
        strikes.*count.place = countIn(lines.field(count.label));
    for (const PercentLabel& percent : kPercents)
        strikes.*percent.place = percentIn(lines.field(percent.label));
    strikes.lineScoreGames = lineScoreGamesIn(lines);
    strikes.singlePins = singlePinsIn(lines);
    return hasFigures(strikes) ? std::optional(std::move(strikes)) : std::nullopt;
}

std::vector<LeaveFigures> leavesIn(const ReportLines& report) {
    std::vector<LeaveFigures> leaves;
    for (const QStringView line : report.below(heading::kLeaves)) {
        if (std::optional<LeaveFigures> leave = leaveIn(line))
            leaves.push_back(*std::move(leave));
    }
    std::ranges::stable_sort(leaves, std::ranges::greater(), &LeaveFigures::attempts);
    return leaves;
}

}  // namespace tallybrook
