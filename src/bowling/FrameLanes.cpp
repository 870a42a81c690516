#include "bowling/FrameLanes.h"

namespace tallybrook {

bool FrameLanes::enter(double lane) {
    for (const Int16 one : {pair.left, pair.right}) {
        if (lane == one.value()) {
            current = one;
            return true;
        }
    }
    return false;
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
