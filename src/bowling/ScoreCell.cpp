#include "bowling/ScoreCell.h"

#include "runtime/TextCompare.h"

namespace tallybrook {

namespace {

constexpr std::string_view kGood = "Good";

bool isDigit(std::string_view ball) {
    return ball.size() == 1 && ball[0] >= '0' && ball[0] <= '9';
}
bool isStrike(std::string_view ball) {
    return ball == "X";
}
bool isSpare(std::string_view ball) {
    return ball == "/";
}
bool isMark(std::string_view ball) {
    return isStrike(ball) || isSpare(ball);
}

/// What the second ball of a cell that began with a count or, in frame 10, a strike comes to: the word for
/// the fault, or nothing.
std::string_view secondFault(int frame, std::string_view first, std::string_view second) {
    const bool freshRack = frame == kFrames && isStrike(first);
    if (isStrike(second) && !freshRack)
        return "Second Count";
    if (isSpare(second) && isStrike(first))
        return "Second Count";
    if (isDigit(second) && !freshRack && countOf(first) + countOf(second) > 9)
        return "Frame Mismatch";
    return {};
}

/// The same for the third ball of frame 10.
std::string_view thirdFault(std::string_view second, std::string_view third) {
    const bool freshRack = isMark(second);
    if (isStrike(third) && !freshRack)
        return "Fill Count";
    if (isSpare(third) && freshRack)
        return "Frame Mismatch";
    if (isDigit(third) && !freshRack && countOf(second) + countOf(third) > 9)
        return "Frame Mismatch";
    return {};
}

CellCheck verdict(std::string_view fault, const std::string& cell) {
    return {std::string(fault.empty() ? kGood : fault), cell};
}

bool startsWithStrike(std::string_view cell) {
    return isStrike(ball(cell, 1));
}

/// What frame `frame` (1 to 8) adds, with the two cells after it.
int earlyFrame(std::string_view cell, std::string_view next, std::string_view afterNext) {
    const bool strike = cell == "X";
    if (isSpare(ball(cell, 2)))
        return startsWithStrike(next) ? 20 : 10 + countOf(ball(next, 1));
    if (!strike)
        return countOf(ball(cell, 1)) + countOf(ball(cell, 2));
    if (next == "X")
        return startsWithStrike(afterNext) ? 30 : 20 + countOf(ball(afterNext, 1));
    if (next.find('/') != std::string_view::npos)
        return 20;
    return 10 + countOf(ball(next, 1)) + countOf(ball(next, 2));
}

int ninthFrame(std::string_view cell, std::string_view tenth) {
    const std::string_view first = ball(tenth, 1);
    const std::string_view second = ball(tenth, 2);
    if (isSpare(ball(cell, 2)))
        return isStrike(first) ? 20 : 10 + countOf(first);
    if (cell != "X")
        return countOf(ball(cell, 1)) + countOf(ball(cell, 2));
    if (isStrike(first) && isStrike(second))
        return 30;
    if (isSpare(second))
        return 20;
    return isStrike(first) ? 20 + countOf(second) : 10 + countOf(first) + countOf(second);
}

int tenthFrame(std::string_view cell) {
    const std::string_view first = ball(cell, 1);
    const std::string_view second = ball(cell, 2);
    const std::string_view third = ball(cell, 3);
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

}  // namespace

std::string_view ball(std::string_view cell, std::size_t number) {
    return firstCharacters(cell, number).substr(firstCharacters(cell, number - 1).size());
}

int countOf(std::string_view ball) {
    return isDigit(ball) ? ball[0] - '0' : 0;
}

CellCheck checkLineScore(int frame, const std::string& cell) {
    const bool tenth = frame == kFrames;
    const std::string_view first = ball(cell, 1);
    const std::string_view second = ball(cell, 2);
    if (isStrike(first) && !tenth)
        return verdict({}, "X");
    if (!isStrike(first) && !isDigit(first))
        return verdict("First Count", cell);
    if (const std::string_view fault = secondFault(frame, first, second); !fault.empty())
        return verdict(fault, cell);
    return tenth ? verdict(thirdFault(second, ball(cell, 3)), cell)
                 : verdict({}, std::string(first) + std::string(second));
}

std::string checkPinfall(int frame, const std::string& first, const std::string& second,
                         const std::string& fill) {
    const bool tenth = frame == kFrames;
    if (first.empty())
        return "First Pinfall";
    if (second.empty() && (tenth || !isStrike(first)))
        return "Second Pinfall";
    if (tenth && isMark(second) && fill.empty())
        return "Fill Pinfall";
    return std::string(kGood);
}

std::array<Int16, kFrames> runningScores(const std::array<std::string, kFrames>& cells) {
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

}  // namespace tallybrook
