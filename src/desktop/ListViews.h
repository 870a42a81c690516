#pragma once

#include "desktop/ControlView.h"

// Lists of items of which one can be picked.
namespace tallybrook {

/// A list that opens when it is used: a combo box or a drive list.
std::unique_ptr<ControlView> makeComboView(Control& control, QWidget& parent, ViewListener& listener);
std::unique_ptr<ControlView> makeListBoxView(Control& control, QWidget& parent, ViewListener& listener);

}  // namespace tallybrook
