#include "pictures/SeasonsSideBySide.h"

#include "pictures/RackCards.h"
#include "pictures/SeasonPictures.h"
#include "readers/Days.h"
#include "readers/FileFailure.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tallybrook {

namespace {

SeasonRecord recordOf(const ReportFigures& figures) {
    SeasonRecord record;
    for (const BowledEvent& event : figures.events.bowled)
        record.total.add(event);
    const StrikeFigures strikes = figures.strikes.value_or(StrikeFigures());
    if (strikes.strikes && strikes.spares && strikes.opens) {
        const int chances = *strikes.spares + *strikes.opens;
        const int all = *strikes.strikes + chances;
        record.shares = {{"Strikes", {*strikes.strikes, all}},
                         {"Spares", {*strikes.spares, chances}},
                         {"Open frames", {*strikes.opens, all}}};
    }
    if (strikes.singlePins)
        record.shares.push_back({"Single pins", {strikes.singlePins->made, strikes.singlePins->attempts}});
    for (const LeaveFigures& leave : figures.leaves)
        record.leaves.push_back({leave.pins.toStdString(), {leave.made, leave.attempts}});
    record.firstBallAverage = strikes.firstBallAverage;
    return record;
}

Comparison comparisonOf(const std::vector<ComparedReport>& reports) {
    std::vector<SeasonRecord> records;
    records.reserve(reports.size());
    for (const ComparedReport& report : reports)
        records.push_back(recordOf(report.figures));
    return compared(records);
}

Day firstDayOf(const ComparedReport& report) {
    const BowledEvents& events = report.figures.events.bowled;
    return events.empty() ? Day::max() : events.front().date;
}

std::vector<ComparedReport> sorted(std::vector<ComparedReport> reports) {
    std::ranges::stable_sort(reports, {}, firstDayOf);
    return reports;
}

QString periodOf(const ComparedReport& report) {
    const BowledEvents& events = report.figures.events.bowled;
    return events.empty() ? QString("no events with a score")
                          : dayText(events.front().date) + " to " + dayText(events.back().date);
}

QString ofAttempts(const Proportion& counted) {
    return QString("%1 of %2").arg(counted.made).arg(counted.attempts);
}

QString percentOf(const Proportion& counted) {
    return counted.attempts > 0 ? QString("%1%").arg(std::lround(100 * counted.share())) : QString("-");
}

QString signedText(double number, int decimals) {
    return (number > 0 ? "+" : "") + QString::number(number, 'f', decimals);
}

QString changeTold(const ComparedShare& share) {
    const bool areThere = share.before().attempts > 0 && share.last().attempts > 0;
    if (!areThere)
        return {};
    const auto points = static_cast<int>(std::lround(100 * share.change()));
    return points == 0 ? QString("no change")
                       : signedText(points, 0) + (std::abs(points) == 1 ? " point" : " points");
}

/// What chance has to do with a change, in words for a sentence and for a column.
struct WordsOfChance {
    const char* told;
    const char* inColumn;
};

const WordsOfChance& wordsFor(const ComparedShare& share) {
    static constexpr std::array<WordsOfChance, 3> kWords{{
        {"too few to tell", "too few"},
        {"may well be chance", "maybe"},
        {"more than chance would do", "hardly"},
    }};
    return kWords.at(static_cast<std::size_t>(share.chance()));
}

QString nameOf(const ComparedShare& leave) {
    return nameOfLeave(QString::fromStdString(leave.name), readPins(leave.name));
}

// --- The text ----------------------------------------------------------------------------------------------

using Rows = std::vector<QStringList>;
using Widths = std::vector<qsizetype>;

/// How wide the columns of rows must be for their cells, with two blanks between them.
Widths widthsOf(const std::vector<Rows>& tables) {
    constexpr qsizetype kBetween = 2;
    Widths widths;
    for (const Rows& rows : tables) {
        for (const QStringList& row : rows) {
            widths.resize(std::max(widths.size(), static_cast<std::size_t>(row.size())));
            for (std::size_t cell = 0; cell < static_cast<std::size_t>(row.size()); ++cell)
                widths[cell] = std::max(widths[cell], row[static_cast<qsizetype>(cell)].size() + kBetween);
        }
    }
    return widths;
}

QString tableText(const Rows& rows, const Widths& widths) {
    QString text;
    for (const QStringList& row : rows) {
        QString line;
        for (qsizetype cell = 0; cell < row.size(); ++cell)
            line += row[cell].leftJustified(widths[static_cast<std::size_t>(cell)]);
        while (line.endsWith(' '))
            line.chop(1);
        text += line + '\n';
    }
    return text;
}

QString shareTold(const Proportion& counted) {
    return ofAttempts(counted) + ", " + percentOf(counted);
}

/// One thing in all seasons, what it cost where that is told, and what the change says.
QStringList rowOf(const QString& name, const ComparedShare& share, const QString& lost) {
    QStringList row{name};
    for (const Proportion& season : share.seasons)
        row += shareTold(season);
    return row + QStringList{changeTold(share), lost, wordsFor(share).inColumn};
}

QString underlined(const QString& heading) {
    return "\n" + heading + "\n" + QString(heading.size(), '-') + "\n";
}

QStringList numbersOf(std::size_t count) {
    QStringList numbers;
    for (std::size_t number = 1; number <= count; ++number)
        numbers += QString("Report %1").arg(number);
    return numbers;
}

/// The heads of the columns.
QStringList headsOf(const QString& name, std::size_t seasons, const QString& lost) {
    return QStringList{name} + numbersOf(seasons) + QStringList{"Change", lost, "By chance?"};
}

/// The games and averages of the seasons, below the heads of their columns.
Rows totalRows(const std::vector<PinsOverGames>& totals) {
    QStringList games{"Games"};
    QStringList averages{"Average"};
    for (const PinsOverGames& total : totals) {
        games += QString::number(total.games);
        averages += QString::number(total.average(), 'f', 1);
    }
    const double change = totals.back().average() - (totals.end() - 2)->average();
    averages += signedText(change, 1) + " pins";
    return {headsOf({}, totals.size(), {}), games, averages};
}

/// The leaves with what they cost, below the heads of their columns.
Rows leafRows(const std::vector<ComparedShare>& leaves, std::size_t seasons) {
    Rows rows{headsOf("Spare", seasons, "Pins lost")};
    for (const ComparedShare& leave : leaves)
        rows.push_back(rowOf(nameOf(leave), leave, QString::number(leave.lost)));
    return rows;
}

// --- The pictures ------------------------------------------------------------------------------------------

PictureTable tableOf(const std::vector<ComparedShare>& shares, const QStringList& names, bool areLeaves) {
    PictureTable table{{"What"}, {}};
    for (std::size_t season = 0; season < shares.front().seasons.size(); ++season)
        table.head += QString("Report %1").arg(season + 1);
    table.head += {"Change", "In words"};
    if (areLeaves)
        table.head += "Pins lost at least";
    for (std::size_t index = 0; index < shares.size(); ++index) {
        QStringList row{names[static_cast<qsizetype>(index)]};
        for (const Proportion& season : shares[index].seasons)
            row += shareTold(season);
        row += {changeTold(shares[index]), chanceTold(shares[index])};
        if (areLeaves)
            row += QString::number(shares[index].lost);
        table.rows.push_back(row);
    }
    return table;
}

}  // namespace

QString chanceTold(const ComparedShare& share) {
    return QString("%1 against %2: %3")
        .arg(ofAttempts(share.last()), ofAttempts(share.before()), wordsFor(share).told);
}

bool isStatistical(const ReportFigures& figures) {
    return figures.scores || !figures.events.isEmpty();
}

bool areStatistical(const QStringList& files) {
    try {
        return std::ranges::all_of(
            files, [](const QString& file) { return isStatistical(readFigures(readReport(file).text)); });
    } catch (const FileFailure&) {
        return false;
    }
}

SeasonsSideBySide readSeasons(const QStringList& files) {
    std::vector<ComparedReport> reports;
    for (const QString& file : files) {
        const ReportText report = readReport(file);
        reports.push_back({report.name(), readFigures(report.text)});
        if (!isStatistical(reports.back().figures))
            throw FileFailure(report.name() + " is no statistical report, and only these can be compared.");
    }
    return SeasonsSideBySide(std::move(reports));
}

SeasonsSideBySide::SeasonsSideBySide(std::vector<ComparedReport> reports)
    : reports_(sorted(std::move(reports))), comparison_(comparisonOf(reports_)) {}

QString SeasonsSideBySide::text() const {
    QString text = "Seasons Side by Side\n\n";
    for (std::size_t number = 0; number < reports_.size(); ++number)
        text += QString("Report %1: %2, %3\n")
                    .arg(number + 1)
                    .arg(reports_[number].name, periodOf(reports_[number]));
    const Rows leaves = leafRows(comparison_.leaves, reports_.size());
    Rows shares = totalRows(comparison_.totals);
    for (const ComparedShare& share : comparison_.shares)
        shares.push_back(rowOf(QString::fromStdString(share.name), share, {}));
    const Widths widths = widthsOf({shares, leaves});
    return text + underlined("Averages and Shares") + tableText(shares, widths) +
           underlined("Leaves, by the Pins that They Cost in the Last Report") + tableText(leaves, widths);
}

std::vector<ReportPicture> SeasonsSideBySide::pictures() const {
    QStringList names;
    for (const ComparedReport& report : reports_)
        names += report.name + ", " + periodOf(report);
    std::vector<ReportPicture> pictures;
    pictures.push_back(averagesPicture(comparison_.totals, names));
    const auto add = [&](const QString& heading, const std::vector<ComparedShare>& shares, bool areLeaves) {
        if (shares.empty())
            return;
        SharesShown shown{heading, {}, names};
        QStringList rowNames;
        QStringList told;
        for (const ComparedShare& share : shares) {
            rowNames += areLeaves ? nameOf(share) : QString::fromStdString(share.name);
            shown.rows.push_back({rowNames.back(), changeTold(share), chanceTold(share), share.seasons});
            told += rowNames.back() + ": " + chanceTold(share);
        }
        pictures.push_back(sharesPicture(shown, told.join(". ") + ".", tableOf(shares, rowNames, areLeaves)));
    };
    add("Strikes, spares and open frames side by side", comparison_.shares, false);
    add("Leaves side by side, those that cost most first", comparison_.leaves, true);
    return pictures;
}

}  // namespace tallybrook
