#include "readers/ScoreSheet.h"

#include <algorithm>

namespace tallybrook {

SheetTotals totalsOf(const SheetMarks& marks) {
    Cells cells;
    std::ranges::transform(marks, cells.begin(), &QString::toStdString);
    return settledScores(cells);
}

}  // namespace tallybrook
