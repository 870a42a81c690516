#include "bowling/FrameLanes.h"

namespace tallybrook {

bool FrameLanes::enter(double lane) {
    if (lane == pair.left.value())
        current = pair.left;
    else if (lane == pair.right.value())
        current = pair.right;
    else
        return false;
    return true;
}

void FrameLanes::workOutNext(Int16 startLane, bool alternates, bool isTenth) {
    if (!alternates)
        next = startLane;
    else if (isTenth)
        next = current;
    else
        next = pair.beside(current).value_or(next);
}

}  // namespace tallybrook
