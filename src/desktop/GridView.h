#pragma once

#include "desktop/ControlView.h"

namespace tallybrook {

/// A grid, with its title above it.
std::unique_ptr<ControlView> makeGridView(Control& control, QWidget& parent, ViewListener& listener);

}  // namespace tallybrook
