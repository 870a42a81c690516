#pragma once

#include "controls/Screen.h"
#include "desktop/WindowMemory.h"

#include <functional>

namespace tallybrook {

/// Takes what a person does at the windows.
class ActionTaker {
public:
    virtual ~ActionTaker() = default;

    /// Runs what a person did, to its end, and brings the windows up to date. No exception leaves it, since
    /// none may pass through the toolkit. A window whose screen goes meanwhile has been let go of, and lives
    /// until the event that the action comes from is over.
    virtual void perform(const std::function<void()>& action) = 0;
    /// Told what became of the focus by a press of the mouse or a key.
    virtual void noteArrival(Arrival arrival) = 0;

    /// How the user has left the windows.
    virtual WindowMemory& memory() = 0;
    /// Whether the windows answer keys and double clicks that the screens know nothing of.
    [[nodiscard]] virtual bool hasOwnKeys() const = 0;
};

}  // namespace tallybrook
