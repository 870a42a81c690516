#pragma once

#include "runtime/Value.h"
#include "store/Store.h"

#include <cstdint>
#include <limits>
#include <span>
#include <vector>

namespace tallybrook {

/// What figures ask of a game.
struct StoredGame {
    std::int64_t event = 0;
    Value number;
    Value score;
    Value scoreType;
};

/// What figures ask of a frame.
struct StoredFrame {
    std::int64_t event = 0;
    std::int64_t game = 0;
    Value number;
    Value firstBall;
    Value secondBall;
    Value fillBall;
    Value lineScore;
};

/// The games and frames of one event after another, for a walk over any number of events: those of the next
/// events are read as well, of ever more of them the longer the walk lasts. Nothing may be stored meanwhile.
/// Errors of all that reads: -2147467259 for what SQLite reports.
class EventRows {
public:
    explicit EventRows(Store& store) : store_(store) {}

    /// Goes to the event of that key, be it there or not. A walk is to go in ascending order.
    void goTo(std::int64_t eventKey);
    /// The games of the event, in the order of their numbers.
    [[nodiscard]] std::span<const StoredGame> games();
    /// The frames of the event that bear a game's number, in the order of their own.
    [[nodiscard]] std::span<const StoredFrame> framesOf(std::int64_t game);

private:
    template <typename Row>
    void read(std::vector<Row>& rows, bool& isRead);

    Store& store_;
    std::int64_t event_ = 0;
    // The events whose rows are read at once.
    std::int64_t first_ = 0;
    std::int64_t last_ = std::numeric_limits<std::int64_t>::min();
    std::int64_t reach_ = 1;
    bool hasGames_ = false;
    bool hasFrames_ = false;
    std::vector<StoredGame> games_;
    std::vector<StoredFrame> frames_;
};

}  // namespace tallybrook
