#pragma once

#include "controls/Control.h"
#include "controls/Keyboard.h"

namespace tallybrook::person {

/// A key pressed with the focus in a text box, for displays whose toolkit does not edit texts itself: a
/// character, Backspace or Delete, which work on all of the text if it is selected, else at the caret, and
/// Left, Right, Home and End. False if it is no such key.
bool typeKey(TextBox& box, const Key& key);

}  // namespace tallybrook::person
