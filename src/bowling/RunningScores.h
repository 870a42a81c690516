#pragma once

#include "bowling/Marks.h"
#include "runtime/Integer.h"

#include <array>
#include <optional>

namespace tallybrook {

/// The running score after each of the ten frames, from their cells, whatever stands in them.
std::array<Int16, kFrames> runningScores(const Cells& cells);

/// The running scores as far as the cells settle them. As on paper, a score is there as soon as the balls
/// that count for it are. The scores end before a strike or spare whose balls to come are missing, before an
/// unfinished last frame, and before anything that cannot be bowled; a ball left out of an earlier frame
/// counts nothing.
std::array<std::optional<int>, kFrames> settledScores(const Cells& cells);

}  // namespace tallybrook
