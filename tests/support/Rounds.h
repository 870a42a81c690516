#pragma once

#include <cstdlib>

namespace tallybrook::test {

/// How often a random test is run: as often as the environment's TALLYBROOK_ROUNDS says, else the ordinary
/// number of times.
inline int roundsOr(int ordinary) {
    const char* const rounds = std::getenv("TALLYBROOK_ROUNDS");
    return rounds == nullptr ? ordinary : std::atoi(rounds);
}

/// What it draws from: the environment's TALLYBROOK_SEED, else always the same.
inline unsigned seedOr(unsigned ordinary) {
    const char* const seed = std::getenv("TALLYBROOK_SEED");
    return seed == nullptr ? ordinary : static_cast<unsigned>(std::strtoul(seed, nullptr, 10));
}

}  // namespace tallybrook::test
