#pragma once

#include "sample/Dice.h"
#include "sample/Logbook.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tallybrook::sample {

inline constexpr int kMostEvents = 1'000'000;

/// A bowler's years, event by event: leagues in their seasons, practice and tournaments, up to thirty years
/// that end in May 2026. About three events a week; more where so many events would not fit into the years.
class Career {
public:
    /// The same years from the same number of events, 1 to kMostEvents, and seed.
    Career(int events, std::uint64_t seed);

    [[nodiscard]] bool isOver() const { return bowled_.events == events_; }
    /// The next event, in the order of their dates. Not to be called once the career is over.
    Event next();

private:
    struct Appointment {
        DateTime date;
        int kind;
        bool isSummer;
    };

    void planWeek();
    void number(Event& event);
    [[nodiscard]] std::string recordId(char kind, int number) const;

    std::uint64_t seed_;
    Dice dice_;
    int events_;
    int weeks_;
    int week_ = 0;
    Counts bowled_;
    std::vector<Appointment> appointments_;  // of the week that is begun, the last one first
};

/// How many rows the logbook of those years has.
Counts countCareer(int events, std::uint64_t seed);

}  // namespace tallybrook::sample
