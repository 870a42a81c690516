#pragma once

#include "bowling/LanePair.h"

namespace tallybrook {

/// The lane of one frame after the other.
struct FrameLanes {
    LanePair pair;
    Int16 current;  // 0 until a lane has been accepted or loaded
    Int16 next;     // 0 until the first one was worked out

    /// Takes the current lane as it was entered; false, with nothing taken, for a lane that is not of the
    /// pair.
    bool enter(double lane);
    /// Works out the next lane, from the current one. A game that does not alternate stays on its starting
    /// lane; after a tenth frame and after a lane that is not of the pair nothing alternates.
    void workOutNext(Int16 startLane, bool alternates, bool isTenth);
};

}  // namespace tallybrook
