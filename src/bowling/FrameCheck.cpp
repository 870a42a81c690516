#include "bowling/FrameCheck.h"

#include "bowling/Marks.h"

#include <string_view>

namespace tallybrook {

namespace {

/// What the second ball of a cell that began with a count or, in frame 10, a strike comes to.
Verdict checkSecond(int frame, std::string_view first, std::string_view second) {
    const bool freshRack = frame == kFrames && isStrike(first);
    if (isStrike(second) && !freshRack)
        return Verdict::SecondCount;
    if (isSpare(second) && isStrike(first))
        return Verdict::SecondCount;
    if (!freshRack && countOf(first) + countOf(second) > 9)
        return Verdict::FrameMismatch;
    return Verdict::Good;
}

/// The same for the third ball of frame 10.
Verdict checkThird(std::string_view second, std::string_view third) {
    const bool freshRack = isMark(second);
    if (isStrike(third) && !freshRack)
        return Verdict::FillCount;
    if (isSpare(third) && freshRack)
        return Verdict::FrameMismatch;
    if (!freshRack && countOf(second) + countOf(third) > 9)
        return Verdict::FrameMismatch;
    return Verdict::Good;
}

}  // namespace

CellCheck checkLineScore(int frame, const std::string& cell) {
    const bool tenth = frame == kFrames;
    const std::string_view first = markOf(cell, 1);
    const std::string_view second = markOf(cell, 2);
    if (isStrike(first) && !tenth)
        return {Verdict::Good, "X"};
    if (!isStrike(first) && !isCount(first))
        return {Verdict::FirstCount, cell};
    if (const Verdict verdict = checkSecond(frame, first, second); verdict != Verdict::Good)
        return {verdict, cell};
    if (tenth)
        return {checkThird(second, markOf(cell, 3)), cell};
    return {Verdict::Good, std::string(first) + std::string(second)};
}

Verdict checkPinfall(int frame, const std::string& first, const std::string& second,
                     const std::string& fill) {
    const bool tenth = frame == kFrames;
    if (first.empty())
        return Verdict::FirstPinfall;
    if (second.empty() && (tenth || !isStrike(first)))
        return Verdict::SecondPinfall;
    if (tenth && isMark(second) && fill.empty())
        return Verdict::FillPinfall;
    return Verdict::Good;
}

}  // namespace tallybrook
