#include "readers/ReportLines.h"

#include <QList>
#include <algorithm>
#include <array>

namespace tallybrook {

namespace {

/// What the figures of a report are parted by.
constexpr std::array kBlocks{heading::kScores, heading::kSeries, heading::kStrikes, heading::kLeaves};

bool isHyphens(QStringView line, qsizetype count) {
    return line.size() == count && std::ranges::all_of(line, [](QChar one) { return one == '-'; });
}

}  // namespace

Field behind(QStringView label, QStringView text) {
    if (!text.startsWith(label))
        return std::nullopt;
    return text.sliced(label.size()).trimmed();
}

Field column(QStringView line, QStringView label, QStringView separator) {
    if (!line.contains(label))  // parting a line takes time, and most do not have it
        return std::nullopt;
    for (const QStringView part : line.split(separator)) {
        if (const Field field = behind(label, part.trimmed()))
            return field;
    }
    return std::nullopt;
}

std::optional<int> countIn(const Field& field) {
    bool isNumber = false;
    const int count = field ? field->toInt(&isNumber) : 0;
    return isNumber && count >= 0 ? std::optional(count) : std::nullopt;
}

QString percentIn(const Field& field) {
    return field && field->endsWith('%') ? field->chopped(1).toString() : QString();
}

QStringView takeLastWord(QStringView& text) {
    text = text.trimmed();
    const qsizetype blank = text.lastIndexOf(' ');
    const QStringView word = text.sliced(blank + 1);
    text = text.first(std::max(blank, qsizetype{0}));
    return word;
}

Field ReportLines::field(QStringView label) const {
    for (const QStringView line : lines_) {
        if (const Field field = column(line, label))
            return field;
    }
    return std::nullopt;
}

ReportLines ReportLines::between(std::size_t from, std::size_t to) const {
    const std::size_t end = std::min(to, count());
    const std::size_t begin = std::min(from, end);
    return ReportLines(lines_.subspan(begin, end - begin));
}

ReportLines ReportLines::below(const Heading& heading) const {
    const std::optional<std::size_t> place = last(heading);
    if (!place)
        return {};
    std::size_t end = *place + 1;
    while (end < count() && !isBlockAt(end))
        ++end;
    return between(*place + 1, end);
}

ReportLines ReportLines::above(const Heading& heading) const {
    return between(0, last(heading).value_or(count()));
}

ReportLines ReportLines::beforeNextHeading() const {
    std::size_t end = 0;
    while (end + 1 < count() && (lines_[end].isEmpty() || !isHyphens(lines_[end + 1], lines_[end].size())))
        ++end;
    return end + 1 < count() ? between(0, end) : *this;
}

bool ReportLines::isAt(std::size_t index, const Heading& heading) const {
    const QStringView line = lines_[index];
    if (heading.isBeginning ? line.startsWith(heading.text) : line == heading.text)
        return true;
    const bool isAlone = index == 0 || lines_[index - 1].isEmpty();
    return isAlone && heading.hyphens > 0 && isHyphens(line, heading.hyphens);
}

std::optional<std::size_t> ReportLines::last(const Heading& heading) const {
    for (std::size_t index = count(); index > 0; --index) {
        if (isAt(index - 1, heading))
            return index - 1;
    }
    return std::nullopt;
}

bool ReportLines::isBlockAt(std::size_t index) const {
    return std::ranges::any_of(kBlocks, [&](const Heading& block) { return isAt(index, block); });
}

}  // namespace tallybrook
