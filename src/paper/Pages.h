#pragma once

#include <QStringList>
#include <vector>

// How a text is laid out on pages of a fixed-width font. Lengths are columns and rows of characters.
namespace tallybrook {

/// The smallest and the usual size of printed text, in points.
constexpr double kSmallestPrint = 6;
constexpr double kUsualPrint = 10;

/// How large a report is printed, and how many columns of it fit into the page's width.
struct PrintSize {
    double points;
    int columns;
};

/// The size at which the widest line fits, between the smallest and the usual one. `columnsAtOnePoint` is how
/// many columns would fit if the font had a size of one point.
PrintSize printSizeFor(int widestLine, double columnsAtOnePoint);

/// Lines with more columns are wrapped in any size: they are comments, and no reason to print all else
/// smaller.
constexpr int kWidestFitted = 100;

/// The columns of the widest line of a text that is not wrapped anyway, with tabs to every eighth column.
int widestLine(const QString& text);

/// The printed rows of a text: blanks for its tabs, and lines that are too wide continued on the next row, at
/// a blank where there is one. At least one row, which may be empty; what the text's last line end ends is
/// the last row.
QStringList printedRows(const QString& text, int columns);

/// Rows that belong together, such as an event, a game or a frame, and the empty rows below them.
using Block = QStringList;

/// The printed rows of a text in blocks. A heading belongs to what stands below it.
std::vector<Block> printedBlocks(const QString& text, int columns);

/// The rows of each page; `rowsOfPage` is at least 1. A block that fits on a page is not parted, and no page
/// but the first begins with empty rows.
std::vector<QStringList> paginated(const std::vector<Block>& blocks, int rowsOfPage);

/// Where a section of a text begins: what its heading or its game is called, and the page, from 0.
struct SectionPlace {
    QString name;
    int page;

    bool operator==(const SectionPlace&) const = default;
};

/// The sections that begin on pages: the rows with hyphens below them, and the games.
std::vector<SectionPlace> sectionsOf(const std::vector<QStringList>& pages);

}  // namespace tallybrook
