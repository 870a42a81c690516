#pragma once

#include "bowling/RunningScores.h"
#include "sample/Dice.h"

#include <array>
#include <string>

namespace tallybrook::sample {

/// What the balls of a frame come to, as the frame screen keeps it.
struct Bowled {
    std::string first;
    std::string second;
    std::string fill;
    std::string lineScore;
};

using BowledGame = std::array<Bowled, kFrames>;

/// Bowls a game of ten frames. `strikes` is how often in a thousand racks the bowler strikes, from 100 to
/// 500; whoever strikes more spares more as well.
BowledGame bowlGame(Dice& dice, int strikes);

/// The score of a game, from its line scores.
int scoreOf(const BowledGame& game);

}  // namespace tallybrook::sample
