#pragma once

#include "runtime/Integer.h"
#include "runtime/Value.h"
#include "store/Store.h"

#include <optional>
#include <string>
#include <vector>

// What one statement tells of many rows that would else be looked at one by one.
namespace tallybrook {

/// How many rows a table has, if it has any and each of them holds in fldSessionNum the key of an event, as a
/// whole number of 32 bits. Nothing where one does not, or where the tables cannot be read. The engine's
/// error where its failure has ended a transaction and undone what was stored in it.
std::optional<int> rowsAllOfEvents(Store& store, const std::string& table);

/// What is stored of a game and of the frames that bear its number.
struct GameOverview {
    Value number;
    Value scoreType;
    Value framesRecorded;
    int frames = 0;
    std::optional<Value> firstBall;  // of the lowest of them, if there is one
};

/// The games of an event in the order of their numbers; nothing where they cannot be read. The same error.
std::optional<std::vector<GameOverview>> gamesAtOneLook(Store& store, Int32 eventKey);

}  // namespace tallybrook
