#pragma once

#include "controls/Control.h"

#include <string_view>

namespace tallybrook {

/// Whether the control is drawn as a pin of the rack.
bool isPin(const Control& control);

/// Whether the control is a pin, or an option, check box or button that stands right above or below the pins.
bool isOnRack(const Control& control);

/// Where an arrow key ("Left", "Right", "Up", "Down") leads to from a control on a rack, as they are laid
/// out: Left and Right to the pin beside and on to the next row, round and round; Up and Down to what is
/// nearest in the next row, which may be the answers above the pins or the button below them. What cannot
/// take the focus is passed over. nullptr if there is nothing.
Control* besideOnRack(const Control& from, std::string_view key);

}  // namespace tallybrook
