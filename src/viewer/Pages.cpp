#include "viewer/Pages.h"

#include "viewer/ReportText.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <utf8proc.h>

namespace tallybrook {

namespace {

/// The columns that a character takes at a column of its line: none for a mark on the one before it.
int widthAt(int column, char32_t character) {
    if (character == '\t')
        return kTabWidth - column % kTabWidth;
    return std::max(utf8proc_charwidth(static_cast<utf8proc_int32_t>(character)), 0);
}

int columnsOf(const QString& line) {
    int column = 0;
    for (const char32_t character : line.toUcs4())
        column += widthAt(column, character);
    return column;
}

/// The lines of a text. A line end at its very end starts no further line.
QStringList linesOf(const QString& text) {
    QStringList lines = text.split('\n');
    if (lines.size() > 1 && lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

/// Writes one line into rows, its tabs as blanks.
class RowWriter {
public:
    explicit RowWriter(int columns) : columns_(columns) {}

    void write(char32_t character) {
        const int width = widthAt(column_, character);
        if (character != '\t')
            put(character, width);
        for (int blanks = character == '\t' ? width : 0; blanks > 0; --blanks)
            put(' ', 1);
        column_ += width;
    }
    /// All rows written; the object is of no use afterwards.
    QStringList take() {
        rows_ += row_;
        return std::move(rows_);
    }

private:
    void put(char32_t character, int width) {
        if (used_ > 0 && used_ + width > columns_) {
            rows_ += std::exchange(row_, {});
            used_ = 0;
        }
        row_ += QChar::fromUcs4(character);
        used_ += width;
    }

    int columns_;
    int column_ = 0;  // of the line
    int used_ = 0;    // of the row
    QString row_;
    QStringList rows_;
};

}  // namespace

PrintSize printSizeFor(int widestLine, double columnsAtOnePoint) {
    const double fitting = columnsAtOnePoint / std::max(widestLine, 1);
    const double points = std::clamp(fitting, kSmallestPrint, kUsualPrint);
    constexpr double kRounding = 1e-6;  // the widest line fits exactly
    return {points, std::max(static_cast<int>(columnsAtOnePoint / points + kRounding), 1)};
}

int widestLine(const QString& text) {
    int widest = 0;
    for (const QString& line : linesOf(text))
        widest = std::max(widest, columnsOf(line));
    return widest;
}

QStringList printedRows(const QString& text, int columns) {
    QStringList rows;
    for (const QString& line : linesOf(text)) {
        RowWriter writer(columns);
        for (const char32_t character : line.toUcs4())
            writer.write(character);
        rows += writer.take();
    }
    return rows;
}

std::vector<QStringList> paginated(const QStringList& rows, int rowsOfPage) {
    std::vector<QStringList> pages;
    for (qsizetype first = 0; first < rows.size(); first += rowsOfPage)
        pages.push_back(rows.mid(first, rowsOfPage));
    return pages;
}

}  // namespace tallybrook
