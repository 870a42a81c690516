#pragma once

#include "sample/Dice.h"
#include "sample/Logbook.h"

#include <cstdint>
#include <vector>

namespace tallybrook::sample {

/// A bowler's years, event by event: leagues in their seasons, practice and tournaments, up to thirty years that
/// end in May 2026. About three events a week; more where so many events would not fit into the years.
class Career {
public:
    /// The same years from the same number of events, at least 1, and seed.
    Career(int events, std::uint64_t seed);

    [[nodiscard]] bool isOver() const { return bowled_ == events_; }
    /// The next event, in the order of their dates. Not to be called once the career is over.
    Event next();

private:
    void planWeek();
    Event bowl(DateTime date, int kind);

    Dice dice_;
    int events_;
    int weeks_;
    int week_ = 0;
    int bowled_ = 0;

    struct Appointment {
        int day;  // from 0, the first of the week
        int kind;
    };
    std::vector<Appointment> appointments_;  // of the week that is begun, the last one first
};

/// How many rows the logbook of those years has.
Counts countCareer(int events, std::uint64_t seed);

}  // namespace tallybrook::sample
