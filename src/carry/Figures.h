#pragma once

#include "runtime/Value.h"

#include <cstdint>
#include <map>
#include <string_view>

#include <SQLiteCpp/SQLiteCpp.h>

namespace tallybrook::carry {

/// What an event comes to.
struct EventFigures {
    bool isThere = false;  // or there are just games or frames of its key
    std::int64_t games = 0;
    std::int64_t frames = 0;
    std::int64_t pins = 0;         // of its games together
    std::int64_t seriesTotal = 0;  // as it is recorded

    friend bool operator==(const EventFigures&, const EventFigures&) = default;
};

/// What a logbook comes to, by which an old one is compared with a new one.
struct Figures {
    std::int64_t events = 0;
    std::int64_t games = 0;
    std::int64_t frames = 0;
    std::map<std::int64_t, EventFigures> byEvent;  // by the event's key; 0 where there is none

    /// Takes a row in; `value` gives its value in a column.
    template <typename ValueOf>
    void add(std::string_view table, ValueOf value);
    /// The pins of all games.
    [[nodiscard]] std::int64_t pins() const;

    friend bool operator==(const Figures&, const Figures&) = default;
};

/// The figures of a logbook. Errors: SQLite::Exception.
Figures figuresOf(const SQLite::Database& logbook);

/// The whole number that a value is; 0 for anything else.
inline std::int64_t wholeNumberOf(const Value& value) {
    const auto* const number = std::get_if<std::int64_t>(&value);
    return number != nullptr ? *number : 0;
}

template <typename ValueOf>
void Figures::add(std::string_view table, ValueOf value) {
    EventFigures& event = byEvent[wholeNumberOf(value("fldSessionNum"))];
    if (table == "tblEventInfo") {
        ++events;
        event.isThere = true;
        event.seriesTotal = wholeNumberOf(value("fldSeriesTot"));
    } else if (table == "tblGameInfo") {
        ++games;
        ++event.games;
        event.pins += wholeNumberOf(value("fldGameScore"));
    } else {
        ++frames;
        ++event.frames;
    }
}

}  // namespace tallybrook::carry
