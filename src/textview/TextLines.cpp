#include "textview/TextLines.h"

#include "readers/ReportText.h"

#include <QTextBoundaryFinder>
#include <algorithm>
#include <utility>

namespace tallybrook {

namespace {

using Kind = QTextBoundaryFinder::BoundaryType;

QTextBoundaryFinder finderIn(QStringView line, Kind kind, qsizetype place) {
    QTextBoundaryFinder finder(kind, line);
    finder.setPosition(place);
    return finder;
}

/// What lies around a place of a line between two boundaries.
TextSpan partAround(QStringView line, Kind kind, int place) {
    QTextBoundaryFinder finder = finderIn(line, kind, place);
    const auto end = static_cast<int>(finder.toNextBoundary());
    if (end < 0)
        return {place, place};
    return {static_cast<int>(finder.toPreviousBoundary()), end};
}

}  // namespace

TextLines::TextLines(QString text) : text_(std::move(text)), begins_{0} {
    begins_.reserve(static_cast<std::size_t>(text_.count('\n')) + 1);
    int column = 0;
    int place = 0;
    for (const QChar character : std::as_const(text_)) {
        ++place;
        column = character == '\t' ? column + kTabWidth - column % kTabWidth : column + 1;
        if (character == '\n') {
            begins_.push_back(place);
            column = 0;
        }
        columns_ = std::max(columns_, column);
    }
}

int TextLines::lineOf(int place) const {
    return static_cast<int>(std::ranges::upper_bound(begins_, place) - begins_.begin()) - 1;
}

TextSpan TextLines::span(int line) const {
    const auto index = static_cast<std::size_t>(line);
    const int end = line + 1 < count() ? begins_[index + 1] - 1 : length();
    return {begins_[index], end};
}

QStringView TextLines::part(TextSpan span) const {
    return QStringView(text_).sliced(span.begin, span.length());
}

int TextLines::nextCharacter(int place) const {
    return std::min(characterAt(place).end, length());
}

int TextLines::previousCharacter(int place) const {
    return characterAt(std::max(place - 1, 0)).begin;
}

int TextLines::nextWord(int place) const {
    const TextSpan line = span(lineOf(place));
    if (place == line.end)
        return std::min(place + 1, length());
    QTextBoundaryFinder finder = finderIn(part(line), Kind::Word, place - line.begin);
    while (finder.toNextBoundary() >= 0) {
        if (finder.boundaryReasons().testFlag(QTextBoundaryFinder::StartOfItem))
            return line.begin + static_cast<int>(finder.position());
    }
    return line.end;
}

int TextLines::previousWord(int place) const {
    const TextSpan line = span(lineOf(place));
    if (place == line.begin)
        return std::max(place - 1, 0);
    QTextBoundaryFinder finder = finderIn(part(line), Kind::Word, place - line.begin);
    while (finder.toPreviousBoundary() > 0) {
        if (finder.boundaryReasons().testFlag(QTextBoundaryFinder::StartOfItem))
            break;
    }
    return line.begin + static_cast<int>(std::max(finder.position(), qsizetype{0}));
}

TextSpan TextLines::characterAt(int place) const {
    const TextSpan line = span(lineOf(place));
    if (place == line.end)
        return {place, std::min(place + 1, length())};
    const TextSpan found = partAround(part(line), Kind::Grapheme, place - line.begin);
    return {line.begin + found.begin, line.begin + found.end};
}

TextSpan TextLines::wordAt(int place) const {
    const TextSpan line = span(lineOf(place));
    const bool isBehindLine = place == line.end && !line.isEmpty();
    const TextSpan found = partAround(part(line), Kind::Word, place - line.begin - (isBehindLine ? 1 : 0));
    return {line.begin + found.begin, line.begin + found.end};
}

TextSpan TextLines::wholeLineAt(int place) const {
    const TextSpan line = span(lineOf(place));
    return {line.begin, std::min(line.end + 1, length())};
}

}  // namespace tallybrook
