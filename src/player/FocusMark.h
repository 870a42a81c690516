#pragma once

#include "controls/Screens.h"

#include <string>

namespace tallybrook {

/// Where the focus rests: on a control of the screen in front, or nowhere. Kept by names, since a command may
/// remove the screen.
struct FocusMark {
    std::string screen;
    std::string control;  // empty where no control has the focus

    /// Where it rests now.
    static FocusMark of(const Screens& screens);

    /// Whether it rests on another control than in `before`. Nowhere is the same on any screen.
    [[nodiscard]] bool differsFrom(const FocusMark& before) const;
};

}  // namespace tallybrook
