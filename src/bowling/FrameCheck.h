#pragma once

#include <string>

// Whether a frame may be left as it was entered.
namespace tallybrook {

/// What the check of a frame has come to.
enum class Verdict {
    Unchecked,
    Good,
    FirstPinfall,   // there is no first ball
    SecondPinfall,  // there is no second ball where there must be one
    FillPinfall,    // there is no fill ball where there must be one
    FirstCount,     // the first mark is neither a digit nor a strike
    SecondCount,    // the second mark cannot follow the first
    FillCount,      // the third mark cannot follow the second
    FrameMismatch,  // more pins than there are, or a spare of no pins
};

/// The verdict on a score cell that was typed in.
struct CellCheck {
    Verdict verdict;
    std::string cell;  // the cell as it is to stand from now on
};

/// Checks the cell of frame `frame` (1 to 10). Lenient by intention: a second or third ball is never
/// required, and other characters than digits, "X" and "/" pass there.
CellCheck checkLineScore(int frame, const std::string& cell);

/// Checks the pin strings of frame `frame` (1 to 10). A first-ball strike in frame 10 with an open second
/// ball passes without a fill ball.
Verdict checkPinfall(int frame, const std::string& first, const std::string& second, const std::string& fill);

}  // namespace tallybrook
