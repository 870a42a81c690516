#pragma once

#include "desktop/ControlView.h"

// What is clicked, and perhaps checked.
namespace tallybrook {

std::unique_ptr<ControlView> makeButtonView(Control& control, QWidget& parent, ViewListener& listener);
std::unique_ptr<ControlView> makeOptionView(Control& control, QWidget& parent, ViewListener& listener);
/// A plain check box, or a pin of the rack.
std::unique_ptr<ControlView> makeCheckBoxView(Control& control, QWidget& parent, ViewListener& listener);

}  // namespace tallybrook
