#pragma once

#include "desktop/ControlView.h"

class QAbstractItemView;
class QModelIndex;

// Lists of which one item can be picked.
namespace tallybrook {

/// A list that opens when it is used: a combo box or a drive list.
std::unique_ptr<ControlView> makeComboView(Control& control, QWidget& parent, ViewListener& listener);
std::unique_ptr<ControlView> makeListBoxView(Control& control, QWidget& parent, ViewListener& listener);
/// A folder list.
std::unique_ptr<ControlView> makeFolderTreeView(Control& control, QWidget& parent, ViewListener& listener);

/// What shows the row of a folder list, from 0, in the widget of its view.
QModelIndex folderIndex(const QAbstractItemView& tree, int row);

}  // namespace tallybrook
