#pragma once

#include "runtime/Value.h"
#include "store/Store.h"
#include "store/file/Statement.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>
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
    Value fillBall;  // of the tenth frame alone
    Value lineScore;
};

/// How the rows of one event after another are found: each event's by the index, which costs as much as they
/// are, or all of a table in one go, which costs less where most of them are wanted.
enum class WalkBy { Index, Table };

/// The rows of one table, event after event.
template <typename Row>
class RowsOfEvents {
public:
    RowsOfEvents(Store& store, WalkBy by);

    /// Goes to the event of that key; what it has is read when it is asked for.
    void goTo(std::int64_t eventKey);
    /// The rows of the event, in the order of their numbers.
    [[nodiscard]] std::span<const Row> rows();
    /// Looks at the rest of the table; false where a row does not lie behind the one before it, so that a
    /// walk by the table can have missed it.
    [[nodiscard]] bool areInOrder();

private:
    void read();
    void readByIndex();
    void readOn();
    Row& spare();
    bool isOnNextRow();
    void noteOrder(const Row& row);

    Store& store_;
    WalkBy by_;
    std::string sql_;
    std::int64_t event_ = 0;
    bool isRead_ = true;
    std::vector<Row> rows_;  // the first of them are those of the event; the texts of the others have room
    std::size_t count_ = 0;
    // A walk by the table.
    std::optional<Statement> table_;
    bool isAhead_ = false;  // it stands on a row of a later event
    bool isAtEnd_ = false;
    bool isInOrder_ = true;
    std::array<std::int64_t, 3> last_{std::numeric_limits<std::int64_t>::min()};  // the place of the last row
};

/// The games and frames of one event after another, for a walk over any number of events. Nothing may be
/// stored meanwhile. Errors of all that reads: -2147467259 for what SQLite reports.
class EventRows {
public:
    explicit EventRows(Store& store, WalkBy by = WalkBy::Index) : games_(store, by), frames_(store, by) {}

    /// Goes to the event of that key, be it there or not; in ascending order where the walk is by the table.
    void goTo(std::int64_t eventKey);
    /// The games of the event, in the order of their numbers.
    [[nodiscard]] std::span<const StoredGame> games() { return games_.rows(); }
    /// The frames of the event that bear a game's number, in the order of their own.
    [[nodiscard]] std::span<const StoredFrame> framesOf(std::int64_t game);
    /// Whether a walk by the table, which has come to its end, has found all that one by the index finds.
    [[nodiscard]] bool isWhole() { return games_.areInOrder() && frames_.areInOrder(); }

private:
    RowsOfEvents<StoredGame> games_;
    RowsOfEvents<StoredFrame> frames_;
};

}  // namespace tallybrook
