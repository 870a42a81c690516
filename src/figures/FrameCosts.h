#pragma once

#include "bowling/CleanGame.h"

#include <string>
#include <vector>

namespace tallybrook {

/// The frames of a game with what was left in them.
struct RecordedGame {
    Cells cells;
    Cells leaves;  ///< the pins that a spare was open on, as in "7-10"; empty where they are not known
};

/// What a leave cost that was not spared.
struct LeaveCost {
    std::string leave;  ///< empty for all whose pins are not known
    int frames = 0;     ///< in which it stayed open
    int pins = 0;       ///< that they cost
};

/// The leaves of games that cost pins, the dearest first, otherwise in the order of the games. A game whose
/// score is not settled has none.
std::vector<LeaveCost> leaveCosts(const std::vector<RecordedGame>& games);

}  // namespace tallybrook
