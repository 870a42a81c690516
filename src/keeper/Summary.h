#pragma once

#include "runtime/DateTime.h"
#include "runtime/Progress.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <SQLiteCpp/SQLiteCpp.h>

namespace tallybrook::keeper {

/// How many rows there are of each kind.
struct Counts {
    std::int64_t events = 0;
    std::int64_t games = 0;
    std::int64_t frames = 0;

    [[nodiscard]] std::int64_t all() const { return events + games + frames; }
    Counts& operator+=(const Counts& others);
    friend bool operator==(const Counts&, const Counts&) = default;
};

/// As in "2 events, 6 games and 61 frames", without what there is none of; "nothing" where all is 0.
std::string inWords(const Counts& counts);

/// An event, as a person tells it from others, and as it is told from what became of it later.
struct EventSummary {
    std::int64_t key = 0;
    std::string name = {};
    std::string date = {};  // as it is shown
    std::string center = {};
    Counts counts = {};             // of its rows, itself included
    std::uint64_t fingerprint = 0;  // of all its values, those of its games and frames included, but no key
};

/// What a logbook holds.
struct Summary {
    std::vector<EventSummary> events = {};  // in the order of their keys
    Counts counts = {};                     // of all rows
    std::optional<DateTime> lastNight = {};
    std::uint64_t strays = 0;  // a fingerprint of the games and frames that belong to no event
};

/// Reads all of a logbook. Throws Cancelled and SQLite::Exception.
Summary summaryOf(const SQLite::Database& logbook, Progress& progress);

/// Counts the rows of the three tables. Errors: SQLite::Exception.
Counts countsOf(const SQLite::Database& logbook);

}  // namespace tallybrook::keeper
