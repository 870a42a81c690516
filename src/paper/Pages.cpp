#include "paper/Pages.h"

#include "readers/ReportText.h"

#include <algorithm>
#include <cmath>
#include <iterator>
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
        if (used_ > 0 && used_ + width > columns_)
            goOn(character != ' ');
        if (character == ' ' && !row_.trimmed().isEmpty())
            word_ = {row_.size() + 1, used_ + width};
        row_ += QChar::fromUcs4(character);
        used_ += width;
    }
    /// Begins the next row, with the word that does not fit any more where one has been begun.
    void goOn(bool isInWord) {
        const Place from = isInWord && word_.index > 0 ? word_ : Place{row_.size(), used_};
        rows_ += row_.left(from.index);
        row_ = row_.mid(from.index);
        used_ -= from.column;
        word_ = {};
    }

    /// A place in the row, by its character and its column.
    struct Place {
        qsizetype index = 0;
        int column = 0;
    };

    int columns_;
    int column_ = 0;  // of the line
    int used_ = 0;    // of the row
    Place word_;      // where the last word of the row begins, if it is not the first
    QString row_;
    QStringList rows_;
};

QStringList rowsOf(const QString& line, int columns) {
    RowWriter writer(columns);
    for (const char32_t character : line.toUcs4())
        writer.write(character);
    return writer.take();
}

// --- Blocks ------------------------------------------------------------------------------------------------

bool isUnderline(const QString& line) {
    return !line.isEmpty() && line.count('-') == line.size();
}

/// Whether a line is the last of its frame in a report that tells frames one by one.
bool endsFrame(const QString& line) {
    constexpr qsizetype kHyphensOfFrame = 20;
    return line == "*" || (isUnderline(line) && line.size() == kHyphensOfFrame);
}

QStringList filledOf(const QStringList& lines) {
    QStringList filled;
    std::ranges::copy_if(lines, std::back_inserter(filled),
                         [](const QString& line) { return !line.trimmed().isEmpty(); });
    return filled;
}

/// Whether lines are a game whose line score is still to come.
bool beginsGame(const QStringList& filled) {
    return filled.first().contains("Game Score:") && !filled.contains("Line Score:") &&
           !filled.last().startsWith("Game score only");
}

/// Whether lines say nothing without those below them: a heading, or the lines that a game begins with.
bool leadsOn(const QStringList& lines) {
    const QStringList filled = filledOf(lines);
    if (filled.isEmpty())
        return false;
    const bool isUnderlined = isUnderline(filled.value(1)) && !endsFrame(filled.value(1));
    const bool isHeading =
        isUnderlined && (filled.size() == 2 || (filled.size() == 3 && filled[2].startsWith('(')));
    const bool isLabel = filled.size() == 1 && filled.first().trimmed().endsWith(':');
    return isHeading || isLabel || beginsGame(filled);
}

/// The lines of a text in blocks: an empty line ends one, and so does the last line of a frame.
std::vector<QStringList> blocksOf(const QStringList& lines) {
    std::vector<QStringList> blocks(1);
    bool isEnded = false;
    for (const QString& line : lines) {
        if (isEnded && !line.isEmpty() && !leadsOn(blocks.back()))
            blocks.emplace_back();
        isEnded = line.isEmpty() || endsFrame(line);
        blocks.back() += line;
    }
    return blocks;
}

/// Fills pages with rows.
class PageFiller {
public:
    explicit PageFiller(int rowsOfPage) : rowsOfPage_(rowsOfPage) {}

    void add(const Block& block) {
        const qsizetype filled = filledRows(block);
        const qsizetype wanted =
            filled <= rowsOfPage_ ? filled : std::min<qsizetype>(kLeastRows, rowsOfPage_);
        if (room() < wanted)
            pages_.emplace_back();
        for (const QString& row : block)
            addRow(row);
    }
    std::vector<QStringList> take() { return std::move(pages_); }

private:
    /// Of a block that must be parted so many rows stand together at least.
    static constexpr qsizetype kLeastRows = 6;

    static qsizetype filledRows(const Block& block) {
        qsizetype count = block.size();
        while (count > 1 && block[count - 1].isEmpty())
            --count;
        return count;
    }
    [[nodiscard]] qsizetype room() const { return rowsOfPage_ - pages_.back().size(); }
    void addRow(const QString& row) {
        if (room() == 0)
            pages_.emplace_back();
        const bool isTop = pages_.size() > 1 && pages_.back().isEmpty();
        if (!row.isEmpty() || !isTop)
            pages_.back() += row;
    }

    int rowsOfPage_;
    std::vector<QStringList> pages_{1};
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
    for (const QString& line : linesOf(text)) {
        if (const int columns = columnsOf(line); columns <= kWidestFitted)
            widest = std::max(widest, columns);
    }
    return widest;
}

QStringList printedRows(const QString& text, int columns) {
    QStringList rows;
    for (const QString& line : linesOf(text))
        rows += rowsOf(line, columns);
    return rows;
}

std::vector<Block> printedBlocks(const QString& text, int columns) {
    std::vector<Block> printed;
    for (const QStringList& lines : blocksOf(linesOf(text))) {
        Block& block = printed.emplace_back();
        for (const QString& line : lines)
            block += rowsOf(line, columns);
    }
    return printed;
}

std::vector<QStringList> paginated(const std::vector<Block>& blocks, int rowsOfPage) {
    PageFiller pages(rowsOfPage);
    for (const Block& block : blocks)
        pages.add(block);
    std::vector<QStringList> filled = pages.take();
    if (filled.size() > 1 && filled.back().isEmpty())
        filled.pop_back();
    return filled;
}

std::vector<SectionPlace> sectionsOf(const std::vector<QStringList>& pages) {
    constexpr qsizetype kLeastUnderline = 10;
    std::vector<SectionPlace> sections;
    for (std::size_t page = 0; page < pages.size(); ++page) {
        for (qsizetype row = 0; row < pages[page].size(); ++row) {
            const QString name = pages[page][row].trimmed();
            const QString below = pages[page].value(row + 1);
            if (name.startsWith("Game ") && name.contains("Game Score:"))
                sections.push_back({name.section("  ", 0, 0), static_cast<int>(page)});
            else if (isUnderline(below) && below.size() >= kLeastUnderline && !endsFrame(below) &&
                     !name.isEmpty() && !isUnderline(name) && name != "Frame Summary" &&
                     name != "Line Score:")
                sections.push_back({name, static_cast<int>(page)});
        }
    }
    return sections;
}

}  // namespace tallybrook
