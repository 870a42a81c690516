#include "readers/FigureReaders.h"

#include <algorithm>
#include <array>

namespace tallybrook {

namespace {

/// How a report writes that there is no day.
constexpr QStringView kNoDay = u"12:00:00 AM";

struct RangeLine {
    QStringView label;
    QStringView shown;
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

/// A game with its day, as in "High Game: 172", tab, "Date Bowled: 10/23/2024". Without a day there was none.
std::optional<DatedScore> gameIn(const ReportLines& lines, QStringView label) {
    for (const QStringView line : lines) {
        const std::optional<int> score = countIn(column(line, label));
        const Field date = column(line, u"Date Bowled:");
        if (score && date && !date->isEmpty() && *date != kNoDay)
            return DatedScore{*score, date->toString()};
    }
    return std::nullopt;
}

struct SeriesLabel {
    QStringView begin;
    std::optional<DatedScore> SeriesFigures::*place;
};

constexpr std::array<SeriesLabel, 2> kSeriesLabels{
    {{u"High Series (", &SeriesFigures::high}, {u"Low Series (", &SeriesFigures::low}}};

/// One end of the series of a length, as in "High Series (3 games): 331".
struct SeriesEnd {
    int games;
    std::optional<DatedScore> SeriesFigures::*place;
    int total;
};

std::optional<SeriesEnd> seriesEndIn(QStringView line, const SeriesLabel& label) {
    constexpr QStringView kUnit = u" games):";
    const Field rest = behind(label.begin, line);
    const qsizetype end = rest ? rest->indexOf(kUnit) : -1;
    if (end < 0)
        return std::nullopt;
    const std::optional<int> games = countIn(rest->first(end));
    const std::optional<int> total = countIn(behind(kUnit, rest->sliced(end)));
    if (!games || *games == 0 || !total)
        return std::nullopt;
    return SeriesEnd{*games, label.place, *total};
}

std::optional<SeriesEnd> seriesEndIn(QStringView line) {
    for (const SeriesLabel& label : kSeriesLabels) {
        if (const auto end = seriesEndIn(line, label))
            return end;
    }
    return std::nullopt;
}

/// The day below a series; nothing where the next series comes first.
QString dayBelow(const ReportLines& lines) {
    for (const QStringView line : lines) {
        if (const Field date = behind(u"Date Bowled:", line))
            return date->toString();
        if (seriesEndIn(line))
            break;
    }
    return {};
}

SeriesFigures& seriesOf(int games, std::vector<SeriesFigures>& all) {
    const auto known = std::ranges::find(all, games, &SeriesFigures::games);
    return known != all.end() ? *known : all.emplace_back(SeriesFigures{games, {}, {}});
}

}  // namespace

std::optional<ScoreFigures> scoresIn(const ReportLines& report) {
    const ReportLines lines = report.below(heading::kScores);
    ScoreFigures scores{{}, gameIn(lines, u"High Game:"), gameIn(lines, u"Low Game:")};
    for (const RangeLine& range : kRangeLines) {
        if (const std::optional<int> games = countIn(lines.field(range.label)))
            scores.ranges.push_back({range.shown.toString(), range.lowest, range.highest, *games});
    }
    if (scores.ranges.empty() && !scores.high && !scores.low)
        return std::nullopt;
    return scores;
}

std::vector<SeriesFigures> seriesIn(const ReportLines& report) {
    const ReportLines lines = report.below(heading::kSeries);
    std::vector<SeriesFigures> all;
    for (std::size_t index = 0; index < lines.count(); ++index) {
        const std::optional<SeriesEnd> end = seriesEndIn(lines.at(index));
        const QString day = end ? dayBelow(lines.between(index + 1, lines.count())) : QString();
        if (end && day != kNoDay)
            seriesOf(end->games, all).*end->place = DatedScore{end->total, day};
    }
    return all;
}

}  // namespace tallybrook
