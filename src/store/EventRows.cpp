#include "store/EventRows.h"

#include "store/file/Connection.h"
#include "store/file/StoredValue.h"

#include <algorithm>
#include <array>
#include <variant>

#include <fmt/format.h>

namespace tallybrook {

namespace {

/// A table whose rows belong to events.
struct Source {
    const char* table;
    const char* columns;  // to be read
    const char* key;
    const char* order;  // of the rows of an event
};

constexpr Source sourceOf(const StoredGame&) {
    return {.table = "tblGameInfo",
            .columns = "fldSessionNum, fldGameNum, fldGameScore, fldScoreType",
            .key = "fldGameKey",
            .order = "fldGameNum, fldGameKey"};
}
constexpr Source sourceOf(const StoredFrame&) {
    return {.table = "tblFrameInfo",
            .columns =
                "fldSessionNum, fldGameNum, fldFrameNum, fldFirstBallRes, fldSecondBallRes, "
                "fldLineScore, fldFillBallRes",
            .key = "fldFrameKey",
            .order = "fldGameNum, fldFrameNum, fldFrameKey"};
}

/// Whether a frame is one of those before the tenth.
bool isEarly(const Value& number) {
    constexpr std::int64_t kTenth = 10;
    const auto* const whole = std::get_if<std::int64_t>(&number);
    return whole != nullptr && *whole < kTenth;
}

/// Takes a row over; false where it belongs to no event, or to no game, that figures ask for.
bool take(StoredGame& game, const Statement& row) {
    const auto event = row.wholeNumber(0);
    if (!event)
        return false;
    game.event = *event;
    assign(game.number, row.column(1), FieldType::Number16);
    assign(game.score, row.column(2), FieldType::Number16);
    assign(game.scoreType, row.column(3), FieldType::Text);
    return true;
}
bool take(StoredFrame& frame, const Statement& row) {
    const auto event = row.wholeNumber(0);
    const auto game = row.wholeNumber(1);
    if (!event || !game)
        return false;
    frame.event = *event;
    frame.game = *game;
    assign(frame.number, row.column(2), FieldType::Number16);
    assign(frame.firstBall, row.column(3), FieldType::Text);
    assign(frame.secondBall, row.column(4), FieldType::Text);
    assign(frame.lineScore, row.column(5), FieldType::Text);
    if (isEarly(frame.number))
        frame.fillBall = Null{};
    else
        assign(frame.fillBall, row.column(6), FieldType::Text);
    return true;
}

using Place = std::array<std::int64_t, 3>;

/// Where a row of that number stands among the others.
Place placeOf(const StoredGame& game, std::int64_t number) {
    return {game.event, number, 0};
}
Place placeOf(const StoredFrame& frame, std::int64_t number) {
    return {frame.event, frame.game, number};
}

template <typename Row>
std::string selectBy(WalkBy by) {
    const Source source = sourceOf(Row());
    if (by == WalkBy::Index)
        return fmt::format("SELECT {} FROM {} WHERE fldSessionNum = ? ORDER BY {}", source.columns,
                           source.table, source.order);
    return fmt::format("SELECT {} FROM {} ORDER BY {}", source.columns, source.table, source.key);
}

}  // namespace

template <typename Row>
RowsOfEvents<Row>::RowsOfEvents(Store& store, WalkBy by) : store_(store), by_(by), sql_(selectBy<Row>(by)) {}

template <typename Row>
void RowsOfEvents<Row>::goTo(std::int64_t eventKey) {
    event_ = eventKey;
    isRead_ = false;
}

template <typename Row>
std::span<const Row> RowsOfEvents<Row>::rows() {
    if (!isRead_)
        read();
    return std::span(rows_).first(count_);
}

template <typename Row>
void RowsOfEvents<Row>::read() {
    store_.noteWork();
    count_ = 0;
    onFile([this] { by_ == WalkBy::Index ? readByIndex() : readOn(); });
    isRead_ = true;
}

template <typename Row>
void RowsOfEvents<Row>::readByIndex() {
    Statement::Use row(store_.connection().prepared(sql_));
    row->bind(1, event_);
    while (row->executeStep()) {
        if (take(spare(), *row))
            ++count_;
    }
}

/// Goes on through the table, past the events that nobody has asked for, to the first row of a later one.
template <typename Row>
void RowsOfEvents<Row>::readOn() {
    while (isAhead_ || isOnNextRow()) {
        isAhead_ = false;
        Row& row = spare();
        if (!take(row, *table_))
            continue;
        noteOrder(row);
        isAhead_ = row.event > event_;
        if (isAhead_)
            return;
        if (row.event == event_)
            ++count_;
    }
}

template <typename Row>
bool RowsOfEvents<Row>::areInOrder() {
    return !table_ || onFile([this] {
        while (isInOrder_ && (isAhead_ || isOnNextRow())) {
            isAhead_ = false;
            if (Row& row = spare(); take(row, *table_))
                noteOrder(row);
        }
        return isInOrder_;
    });
}

/// Goes to the next row of the table, if there is one.
template <typename Row>
bool RowsOfEvents<Row>::isOnNextRow() {
    if (!table_)
        table_.emplace(store_.connection().database(), sql_);
    isAtEnd_ = isAtEnd_ || !table_->executeStep();
    return !isAtEnd_;
}

/// Where the next row of the event has room.
template <typename Row>
Row& RowsOfEvents<Row>::spare() {
    if (count_ == rows_.size())
        rows_.emplace_back();
    return rows_[count_];
}

/// The order of the numbers is known where they are plain ones.
template <typename Row>
void RowsOfEvents<Row>::noteOrder(const Row& row) {
    const auto* const number = std::get_if<std::int64_t>(&row.number);
    const Place place = placeOf(row, number == nullptr ? 0 : *number);
    isInOrder_ = isInOrder_ && number != nullptr && last_ <= place;
    last_ = place;
}

template class RowsOfEvents<StoredGame>;
template class RowsOfEvents<StoredFrame>;

void EventRows::goTo(std::int64_t eventKey) {
    games_.goTo(eventKey);
    frames_.goTo(eventKey);
}

std::span<const StoredFrame> EventRows::framesOf(std::int64_t game) {
    const std::span<const StoredFrame> frames = frames_.rows();
    return {std::ranges::lower_bound(frames, game, {}, &StoredFrame::game),
            std::ranges::upper_bound(frames, game, {}, &StoredFrame::game)};
}

}  // namespace tallybrook
