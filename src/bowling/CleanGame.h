#pragma once

#include "bowling/Marks.h"

#include <array>
#include <optional>

// What an open frame costs, against the same balls with its spare made.
namespace tallybrook {

/// Whether a finished frame is open: its last rack has pins left. `frame` counts from 0.
bool isOpen(std::size_t frame, std::string_view cell);

/// The cell with its spare made. In the tenth frame the ball that a spare earns counts no pins, since nobody
/// knows what it would have been. Any other cell as it is.
std::string cleanCell(std::size_t frame, std::string_view cell);

/// What the open frames of a game cost.
struct GameCosts {
    int score;                      ///< that the cells come to
    std::array<int, kFrames> lost;  ///< the pins that each open frame cost; 0 for the others

    /// The score of the same game with every spare made: a clean game.
    [[nodiscard]] int cleanScore() const;
};

/// The costs of a game; nothing where its cells do not settle the last frame. The frames' costs add up, since
/// a spare that is made changes no first ball.
std::optional<GameCosts> costsOf(const Cells& cells);

/// The pins that a missed spare costs at least, where only the leave is known: one that stands, and the bonus
/// of the next ball, which on the average is `firstBallAverage`.
constexpr int leastCostOfMiss(int firstBallAverage) {
    return 1 + firstBallAverage;
}

}  // namespace tallybrook
