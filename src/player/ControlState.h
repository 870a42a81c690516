#pragma once

#include "controls/Control.h"
#include "player/Transcript.h"

#include <string>
#include <vector>

namespace tallybrook {

/// What a person sees of a control: those of caption, text, value, list, picked, row, rows, enabled, visible
/// and focus that it has, in this order, as in `caption="Reset &Form" enabled=yes visible=yes focus=no`.
std::string stateOf(const Control& control, bool hasFocus, const Transcript& transcript);

/// The rows of a grid, each as in `1: "cell"|"cell"`; none for another control.
std::vector<std::string> rowsOf(const Control& control, const Transcript& transcript);

}  // namespace tallybrook
