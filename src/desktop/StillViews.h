#pragma once

#include "desktop/ControlView.h"

// What only shows something.
namespace tallybrook {

std::unique_ptr<ControlView> makeLabelView(Control& control, QWidget& parent, ViewListener& listener);
std::unique_ptr<ControlView> makeGroupBoxView(Control& control, QWidget& parent, ViewListener& listener);
std::unique_ptr<ControlView> makePictureView(Control& control, QWidget& parent, ViewListener& listener);

}  // namespace tallybrook
