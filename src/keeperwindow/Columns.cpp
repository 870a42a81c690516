#include "keeperwindow/Columns.h"

#include <QTreeView>
#include <algorithm>

namespace tallybrook::keeper {

void fitColumn(QTreeView& rows, int column) {
    constexpr int kMost = 40;  // characters
    const int character = rows.fontMetrics().averageCharWidth();
    rows.resizeColumnToContents(column);
    rows.setColumnWidth(column, std::min(rows.columnWidth(column) + character, kMost * character));
}

}  // namespace tallybrook::keeper
