#include "player/FocusMark.h"

#include "controls/Screen.h"

namespace tallybrook {

FocusMark FocusMark::of(const Screens& screens) {
    const Screen* const front = screens.front();
    if (front == nullptr || front->focused() == nullptr)
        return {};
    return {.screen = front->name(), .control = front->focused()->name()};
}

bool FocusMark::differsFrom(const FocusMark& before) const {
    return screen != before.screen || control != before.control;
}

}  // namespace tallybrook
