#include "bowling/RunningScores.h"

#include "bowling/Pins.h"

#include <algorithm>
#include <numeric>

namespace tallybrook {

namespace {

bool startsWithStrike(std::string_view cell) {
    return isStrike(markOf(cell, 1));
}

/// What frame `frame` (1 to 8) adds, with the two cells after it.
int earlyFrame(std::string_view cell, std::string_view next, std::string_view afterNext) {
    const bool strike = cell == "X";
    if (isSpare(markOf(cell, 2)))
        return startsWithStrike(next) ? 20 : 10 + countOf(markOf(next, 1));
    if (!strike)
        return countOf(markOf(cell, 1)) + countOf(markOf(cell, 2));
    if (next == "X")
        return startsWithStrike(afterNext) ? 30 : 20 + countOf(markOf(afterNext, 1));
    if (next.find('/') != std::string_view::npos)
        return 20;
    return 10 + countOf(markOf(next, 1)) + countOf(markOf(next, 2));
}

int ninthFrame(std::string_view cell, std::string_view tenth) {
    const std::string_view first = markOf(tenth, 1);
    const std::string_view second = markOf(tenth, 2);
    if (isSpare(markOf(cell, 2)))
        return isStrike(first) ? 20 : 10 + countOf(first);
    if (cell != "X")
        return countOf(markOf(cell, 1)) + countOf(markOf(cell, 2));
    if (isStrike(first) && isStrike(second))
        return 30;
    if (isSpare(second))
        return 20;
    return isStrike(first) ? 20 + countOf(second) : 10 + countOf(first) + countOf(second);
}

int tenthFrame(std::string_view cell) {
    const std::string_view first = markOf(cell, 1);
    const std::string_view second = markOf(cell, 2);
    const std::string_view third = markOf(cell, 3);
    if (cell == "XXX")
        return 30;
    if (isStrike(first) && isStrike(second) && !isStrike(third))
        return 20 + countOf(third);
    if (isStrike(first) && isSpare(third))
        return 20;
    if (isStrike(first) && !isStrike(second))
        return 10 + countOf(second) + countOf(third);
    if (!isStrike(first) && isSpare(second))
        return isStrike(third) ? 20 : 10 + countOf(third);
    return countOf(first) + countOf(second);
}

bool isMarked(std::string_view cell) {
    return cell.find_first_of("X/") != std::string_view::npos;
}

/// How many balls a finished frame has. `frame` counts from 0.
std::size_t ballsOfFrame(std::size_t frame, std::string_view cell) {
    if (frame == kFrames - 1)
        return isMarked(cell) ? 3 : 2;
    return cell.starts_with('X') ? 1 : 2;
}

/// Whether each mark of a cell can be bowled at the pins that the one before it leaves.
bool canBeBowled(std::string_view cell) {
    int standing = kPins;
    bool isFullRack = true;
    for (std::size_t number = 1; number <= cell.size(); ++number) {
        const std::string_view mark = markOf(cell, number);
        const bool fits = isStrike(mark)  ? isFullRack
                          : isSpare(mark) ? !isFullRack
                                          : isCount(mark) && countOf(mark) < standing;
        if (!fits)
            return false;
        isFullRack = !isFullRack || isStrike(mark);
        standing = isFullRack ? kPins : standing - countOf(mark);
    }
    return true;
}

/// How many balls each frame has that can be counted on; none from the first that cannot.
std::array<std::size_t, kFrames> ballsOf(const Cells& cells) {
    std::array<std::size_t, kFrames> balls{};
    for (std::size_t frame = 0; frame < kFrames; ++frame) {
        const std::string& cell = cells[frame];
        const std::size_t wanted = ballsOfFrame(frame, cell);
        if (cell.empty() || cell.size() > wanted || !canBeBowled(cell))
            break;
        const bool isLast = std::all_of(cells.begin() + static_cast<std::ptrdiff_t>(frame) + 1, cells.end(),
                                        [](const std::string& later) { return later.empty(); });
        balls[frame] = isLast ? cell.size() : wanted;
        if (balls[frame] < wanted)
            break;
    }
    return balls;
}

}  // namespace

std::array<Int16, kFrames> runningScores(const Cells& cells) {
    std::array<Int16, kFrames> scores;
    Int16 score;
    for (std::size_t i = 0; i < kFrames; ++i) {
        if (i < 8)
            score += earlyFrame(cells[i], cells[i + 1], cells[i + 2]);
        else
            score += i == 8 ? ninthFrame(cells[i], cells[i + 1]) : tenthFrame(cells[i]);
        scores[i] = score;
    }
    return scores;
}

std::array<std::optional<int>, kFrames> settledScores(const Cells& cells) {
    const std::array<std::size_t, kFrames> balls = ballsOf(cells);
    const std::array<Int16, kFrames> scores = runningScores(cells);
    std::array<std::optional<int>, kFrames> settled;
    for (std::size_t frame = 0; frame < kFrames && balls[frame] > 0; ++frame) {
        const std::size_t counting = isMarked(cells[frame]) ? 3 : 2;
        const auto begin = balls.begin() + static_cast<std::ptrdiff_t>(frame);
        if (std::accumulate(begin, balls.end(), std::size_t{0}) < counting)
            break;
        settled[frame] = scores[frame].value();
    }
    return settled;
}

}  // namespace tallybrook
