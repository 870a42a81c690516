#include "readers/ReportFigures.h"

#include "readers/FigureReaders.h"

#include <QStringTokenizer>
#include <algorithm>
#include <array>
#include <vector>

namespace tallybrook {

namespace {

/// No report is that long, and what is should not be read twice.
constexpr qsizetype kLongestPictured = qsizetype{32} * 1024 * 1024;

ReportFigures figuresOfEvent(const ReportLines& report) {
    return {gamesOfEvent(report), std::nullopt, {}, strikesIn(report), leavesIn(report)};
}

ReportFigures figuresOfStatistics(const ReportLines& report) {
    return {{}, scoresIn(report), seriesIn(report), strikesIn(report), leavesIn(report), eventsIn(report)};
}

ReportFigures figuresOfGame(const ReportLines& report) {
    return {gameOfReport(report), std::nullopt, {}, std::nullopt, {}};
}

using Reader = ReportFigures (*)(const ReportLines& report);

/// A line that only reports of one kind have among their first ones.
struct Sign {
    QStringView begin;
    Reader read;
};

constexpr std::array<Sign, 6> kSigns{{
    {u"Event Report - ", figuresOfEvent},
    {u"Event Date: ", figuresOfEvent},
    {u"Statistical Report", figuresOfStatistics},
    {u"Report Type: ", figuresOfStatistics},
    {u"Event Information", figuresOfGame},
    {u"*****************", figuresOfGame},
}};

/// What the first line of a report begins with.
constexpr std::array<QStringView, 5> kFirstLines{u"Tallybrook ", u"Event Report - ", u"Statistical Report",
                                                 u"Report Date: ", u"Event Information"};

/// How a report is read; nothing for any other text. Its kind is told by the first sign.
Reader readerOf(const ReportLines& text) {
    constexpr std::size_t kLinesOfHeader = 10;
    const auto begins = [](QStringView line, QStringView begin) { return line.trimmed().startsWith(begin); };
    if (std::ranges::none_of(kFirstLines, [&](QStringView begin) { return begins(text.at(0), begin); }))
        return nullptr;
    for (const QStringView line : text.between(0, kLinesOfHeader)) {
        for (const Sign& sign : kSigns) {
            if (begins(line, sign.begin))
                return sign.read;
        }
    }
    return nullptr;
}

/// A long report has many lines: room for all of them is made once.
std::vector<QStringView> viewsOfLines(const QString& text) {
    std::vector<QStringView> lines;
    lines.reserve(static_cast<std::size_t>(text.count('\n')) + 1);
    for (const QStringView line : QStringView(text).tokenize(u'\n'))
        lines.push_back(line);
    return lines;
}

}  // namespace

bool ReportFigures::isEmpty() const {
    return games.empty() && !scores && series.empty() && !strikes && leaves.empty() && events.isEmpty();
}

ReportFigures readFigures(const QString& text) {
    if (text.size() > kLongestPictured)
        return {};
    const std::vector<QStringView> lines = viewsOfLines(text);
    const ReportLines report(lines);
    const Reader read = readerOf(report);
    return read == nullptr ? ReportFigures() : read(report);
}

}  // namespace tallybrook
