#pragma once

#include "controls/Keyboard.h"
#include "controls/Screen.h"

namespace tallybrook::person {

/// A key pressed with the focus in a list, a folder list or a grid; used if it moves there.
Press pressInRows(const Screen& screen, const Key& key);

}  // namespace tallybrook::person
