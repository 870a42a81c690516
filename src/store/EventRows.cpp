#include "store/EventRows.h"

#include "store/file/Connection.h"
#include "store/file/StoredValue.h"

#include <algorithm>
#include <limits>
#include <string>
#include <tuple>
#include <utility>

#include <fmt/format.h>

namespace tallybrook {

namespace {

constexpr std::uint64_t kNear = 16;  // the next event of a walk is at most so many keys on: some are deleted
constexpr std::int64_t kLongestReach = 64;
constexpr std::uint64_t kMostRowsOfEvent = 100;  // on the average, where it is worth to read rows as they lie

/// How far a key is behind a lower one.
std::uint64_t distance(std::int64_t lower, std::int64_t key) {
    return static_cast<std::uint64_t>(key) - static_cast<std::uint64_t>(lower);
}

/// A table whose rows belong to events.
struct Source {
    std::string table;
    std::string key;
    std::string order;     // of the rows; the event comes first
    std::string backward;  // the same
    std::string columns;   // to be read
};

const Source& sourceOf(const std::vector<StoredGame>&) {
    static const Source kGames{.table = "tblGameInfo",
                               .key = "fldGameKey",
                               .order = "fldSessionNum, fldGameNum, fldGameKey",
                               .backward = "fldSessionNum DESC, fldGameNum DESC, fldGameKey DESC",
                               .columns = "fldSessionNum, fldGameNum, fldGameScore, fldScoreType"};
    return kGames;
}

const Source& sourceOf(const std::vector<StoredFrame>&) {
    static const Source kFrames{
        .table = "tblFrameInfo",
        .key = "fldFrameKey",
        .order = "fldSessionNum, fldGameNum, fldFrameNum, fldFrameKey",
        .backward = "fldSessionNum DESC, fldGameNum DESC, fldFrameNum DESC, fldFrameKey DESC",
        .columns =
            "fldSessionNum, fldGameNum, fldFrameNum, fldFirstBallRes, fldSecondBallRes, fldFillBallRes, "
            "fldLineScore"};
    return kFrames;
}

/// Adds a row whose event is a whole number.
void add(std::vector<StoredGame>& games, const Statement& row) {
    const auto event = row.wholeNumber(0);
    if (!event)
        return;
    StoredGame& game = games.emplace_back();
    game.event = *event;
    assign(game.number, row.column(1), FieldType::Number16);
    assign(game.score, row.column(2), FieldType::Number16);
    assign(game.scoreType, row.column(3), FieldType::Text);
}

/// Adds a row whose event and game are whole numbers.
void add(std::vector<StoredFrame>& frames, const Statement& row) {
    const auto event = row.wholeNumber(0);
    const auto game = row.wholeNumber(1);
    if (!event || !game)
        return;
    StoredFrame& frame = frames.emplace_back();
    frame.event = *event;
    frame.game = *game;
    assign(frame.number, row.column(2), FieldType::Number16);
    assign(frame.firstBall, row.column(3), FieldType::Text);
    assign(frame.secondBall, row.column(4), FieldType::Text);
    assign(frame.fillBall, row.column(5), FieldType::Text);
    assign(frame.lineScore, row.column(6), FieldType::Text);
}

/// Where a row stands among the others.
auto placeOf(const StoredGame& game) {
    return std::tuple(game.event, std::get<std::int64_t>(game.number));
}
auto placeOf(const StoredFrame& frame) {
    return std::tuple(frame.event, frame.game, std::get<std::int64_t>(frame.number));
}

/// Whether the rows are in the order of their numbers, as far as plain numbers tell.
template <typename Row>
bool areInOrder(const std::vector<Row>& rows) {
    return std::ranges::all_of(
               rows, [](const Row& row) { return std::holds_alternative<std::int64_t>(row.number); }) &&
           std::ranges::is_sorted(rows, {}, [](const Row& row) { return placeOf(row); });
}

/// Reads the rows of some events on end.
class Block {
public:
    Block(Connection& connection, std::int64_t firstEvent, std::int64_t lastEvent)
        : connection_(connection), first_(firstEvent), last_(lastEvent) {}

    /// Rows that were entered in order lie in order, and are read from their table without a look-up of each.
    template <typename Row>
    void read(std::vector<Row>& rows) const {
        const bool isRead = last_ > first_ && readAsTheyLie(rows) && areInOrder(rows);
        if (!isRead)
            readByTheIndex(rows);
    }

private:
    /// Reads what lies from the first of the rows to the last; false where that would be much more, or not
    /// all of them.
    template <typename Row>
    bool readAsTheyLie(std::vector<Row>& rows) const {
        const Source& source = sourceOf(rows);
        Statement::Use ends(prepared(
            "SELECT (SELECT {1} FROM {0} WHERE fldSessionNum BETWEEN ?1 AND ?2 ORDER BY {2} LIMIT 1), "
            "(SELECT {1} FROM {0} WHERE fldSessionNum BETWEEN ?1 AND ?2 ORDER BY {3} LIMIT 1)",
            source, first_, last_));
        ends->executeStep();
        const std::int64_t firstKey = ends->number(0);
        const std::int64_t lastKey = ends->number(1);
        if (lastKey < firstKey || distance(firstKey, lastKey) > distance(first_, last_) * kMostRowsOfEvent)
            return false;
        collect(rows, prepared("SELECT {4} FROM {0} WHERE {1} BETWEEN ?1 AND ?2 ORDER BY {1}", source,
                               firstKey, lastKey));
        std::erase_if(rows, [this](const Row& row) { return row.event < first_ || row.event > last_; });
        return areAll(rows);
    }

    /// Whether the index has as many rows of these events. To skip in it costs less than to count.
    template <typename Row>
    bool areAll(const std::vector<Row>& rows) const {
        Statement::Use last(prepared(
            "SELECT fldSessionNum FROM {0} WHERE fldSessionNum >= ?1 ORDER BY {2} LIMIT 2 OFFSET ?2 - 1",
            sourceOf(rows), first_, std::ssize(rows)));
        return !rows.empty() && last->executeStep() && last->number(0) <= last_ &&
               (!last->executeStep() || last->number(0) > last_);
    }

    template <typename Row>
    void readByTheIndex(std::vector<Row>& rows) const {
        collect(rows, prepared("SELECT {4} FROM {0} WHERE fldSessionNum BETWEEN ? AND ? ORDER BY {2}",
                               sourceOf(rows), first_, last_));
    }

    template <typename Row>
    void collect(std::vector<Row>& rows, Statement& statement) const {
        rows.clear();
        Statement::Use row(statement);
        while (row->executeStep())
            add(rows, *row);
    }

    Statement& prepared(const char* sql, const Source& source, std::int64_t from, std::int64_t to) const {
        Statement& statement = connection_.prepared(fmt::format(
            fmt::runtime(sql), source.table, source.key, source.order, source.backward, source.columns));
        statement.bind(1, from);
        statement.bind(2, to);
        return statement;
    }

    Connection& connection_;
    std::int64_t first_;
    std::int64_t last_;
};

/// Those of the rows that stand at a place.
template <typename Row, typename Place, typename PlaceOf>
std::span<const Row> rowsAt(const std::vector<Row>& rows, const Place& place, PlaceOf placeOf) {
    return {std::ranges::lower_bound(rows, place, {}, placeOf),
            std::ranges::upper_bound(rows, place, {}, placeOf)};
}

}  // namespace

void EventRows::goTo(std::int64_t eventKey) {
    event_ = eventKey;
    if (eventKey >= first_ && eventKey <= last_)
        return;
    const bool goesOn = eventKey > last_ && distance(last_, eventKey) <= kNear;
    reach_ = goesOn ? std::min(2 * reach_, kLongestReach) : 1;
    first_ = eventKey;
    last_ = eventKey > std::numeric_limits<std::int64_t>::max() - reach_ ? eventKey : eventKey + reach_ - 1;
    hasGames_ = hasFrames_ = false;
}

std::span<const StoredGame> EventRows::games() {
    read(games_, hasGames_);
    return rowsAt(games_, event_, &StoredGame::event);
}

std::span<const StoredFrame> EventRows::framesOf(std::int64_t game) {
    read(frames_, hasFrames_);
    return rowsAt(frames_, std::pair(event_, game),
                  [](const StoredFrame& frame) { return std::pair(frame.event, frame.game); });
}

template <typename Row>
void EventRows::read(std::vector<Row>& rows, bool& isRead) {
    if (isRead)
        return;
    store_.noteWork();
    onFile([&] { Block(store_.connection(), first_, last_).read(rows); });
    isRead = true;
}

}  // namespace tallybrook
