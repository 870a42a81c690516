#pragma once

#include <QString>
#include <array>
#include <optional>

namespace tallybrook {

constexpr std::size_t kSheetFrames = 10;

/// The marks of each frame as a report has them, as in "X", "9/" or "81"; empty where there are none.
using SheetMarks = std::array<QString, kSheetFrames>;

/// The running score after each frame, where the marks settle it.
using SheetTotals = std::array<std::optional<int>, kSheetFrames>;

/// The running totals of a score sheet. As on paper, a total is there as soon as the balls that count for it
/// are. The totals end before a strike or spare whose balls to come are missing, before an unfinished last
/// frame, and before anything that is no mark; a ball left out of an earlier frame counts nothing.
SheetTotals totalsOf(const SheetMarks& marks);

}  // namespace tallybrook
