#pragma once

#include "desktop/ControlView.h"

namespace tallybrook {

/// A text box, of one line or of several.
std::unique_ptr<ControlView> makeTextBoxView(Control& control, QWidget& parent, ViewListener& listener);

}  // namespace tallybrook
