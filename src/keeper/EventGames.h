#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <SQLiteCpp/SQLiteCpp.h>

namespace tallybrook::keeper {

/// A game as it is looked at.
struct GameLook {
    std::string number;
    std::string score;
    std::string lanes;
    std::vector<std::string> frames;  // each in a few words: its number, its balls or its cell
};

/// The games of an event with their frames, in the order of their numbers; nothing where there is no such
/// event. Errors: SQLite::Exception.
std::optional<std::vector<GameLook>> gamesOf(const SQLite::Database& logbook, std::int64_t event);

}  // namespace tallybrook::keeper
