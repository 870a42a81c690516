#pragma once

#include "desktop/ControlView.h"

class QAbstractItemView;
class QModelIndex;

namespace tallybrook {

/// A folder list as a tree.
std::unique_ptr<ControlView> makeFolderTreeView(Control& control, QWidget& parent, ViewListener& listener);

/// What shows a row of the folder list, from 0, in the widget of its view.
QModelIndex folderIndex(const QAbstractItemView& tree, int row);

}  // namespace tallybrook
