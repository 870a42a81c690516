#pragma once

#include "bowling/RunningScores.h"

#include <QString>
#include <array>
#include <optional>

namespace tallybrook {

constexpr std::size_t kSheetFrames = kFrames;

/// The marks of each frame as a report has them, as in "X", "9/" or "81"; empty where there are none.
using SheetMarks = std::array<QString, kSheetFrames>;

/// The running score after each frame, as far as the marks settle it.
using SheetTotals = std::array<std::optional<int>, kSheetFrames>;

SheetTotals totalsOf(const SheetMarks& marks);

}  // namespace tallybrook
