#pragma once

class QTreeView;

namespace tallybrook::keeper {

/// Makes a column as wide as its texts, but not so wide that the others would be out of sight.
void fitColumn(QTreeView& rows, int column);

}  // namespace tallybrook::keeper
