#pragma once

#include "player/Transcript.h"
#include "shell/Control.h"

#include <string>

namespace tallybrook {

/// What a person sees of a control: those of caption, text, value, enabled, visible and focus that it has, as
/// in `caption="Reset &Form" enabled=yes visible=yes focus=no`.
std::string stateOf(const Control& control, bool hasFocus, const Transcript& transcript);

}  // namespace tallybrook
