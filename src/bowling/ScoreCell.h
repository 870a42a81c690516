#pragma once

#include "runtime/Integer.h"

#include <array>
#include <string>
#include <string_view>

// The marks of a frame as on a score sheet, one character per ball: a digit, "X" or "/".
namespace tallybrook {

inline constexpr int kFrames = 10;

/// The ball with this number, from 1, of a cell; empty where the cell is shorter.
std::string_view ball(std::string_view cell, std::size_t number);

/// What one ball counts: a digit its value, anything else and nothing 0.
int countOf(std::string_view ball);

/// The verdict on a score cell that was typed in.
struct CellCheck {
    std::string result;  // "Good", or the word for the fault
    std::string cell;    // the cell as it is to stand from now on
};

/// Checks the cell of frame `frame` (1 to 10). Lenient by intention: a second or third ball is never
/// required, and other characters than digits, "X" and "/" pass there.
CellCheck checkLineScore(int frame, const std::string& cell);

/// Checks the pin strings of frame `frame` (1 to 10): "Good", or the word for the fault. A first-ball strike
/// in frame 10 with an open second ball passes without a fill ball.
std::string checkPinfall(int frame, const std::string& first, const std::string& second,
                         const std::string& fill);

/// The running score after each of the ten frames, from their cells.
std::array<Int16, kFrames> runningScores(const std::array<std::string, kFrames>& cells);

}  // namespace tallybrook
