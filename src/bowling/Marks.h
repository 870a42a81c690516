#pragma once

#include <array>
#include <string>
#include <string_view>

// The marks of a frame as on a score sheet, one character per ball: a digit, "X" or "/". The pin string of a
// ball is "X" or "/" in the same way.
namespace tallybrook {

inline constexpr int kFrames = 10;

/// The marks of each frame of a game.
using Cells = std::array<std::string, kFrames>;

/// The mark with this number, from 1, of a cell; empty where the cell is shorter.
std::string_view markOf(std::string_view cell, std::size_t number);

constexpr bool isStrike(std::string_view ball) {
    return ball == "X";
}
constexpr bool isSpare(std::string_view ball) {
    return ball == "/";
}
/// Whether it is a strike or a spare, after which the next ball meets a full rack.
constexpr bool isMark(std::string_view ball) {
    return isStrike(ball) || isSpare(ball);
}
/// Whether it is one digit.
bool isCount(std::string_view mark);

/// What a mark counts by itself: a digit its value, anything else and nothing 0.
int countOf(std::string_view mark);

}  // namespace tallybrook
