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

/// The columns of the widest line of a text, with tabs to every eighth column.
int widestLine(const QString& text);

/// The printed rows of a text: blanks for its tabs, and lines that are too wide continued on the next row. At
/// least one row, which may be empty; what the text's last line end ends is the last row.
QStringList printedRows(const QString& text, int columns);

/// The rows of each page; `rowsOfPage` is at least 1.
std::vector<QStringList> paginated(const QStringList& rows, int rowsOfPage);

}  // namespace tallybrook
