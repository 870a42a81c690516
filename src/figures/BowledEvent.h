#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace tallybrook {

/// An event as the list of a statistical report tells it.
struct BowledEvent {
    std::string name;
    std::string type;  ///< as in "LEAGUE"; empty where the report does not tell it
    std::chrono::local_days date;
    int games;       ///< that it was meant to have
    int pinfall;     ///< of its games
    double average;  ///< of the games that are there, above 0

    /// How many games the average is over: those that were recorded, which may be fewer than it was meant to
    /// have.
    [[nodiscard]] int gamesCounted() const;

    bool operator==(const BowledEvent&) const = default;
};

using BowledEvents = std::vector<BowledEvent>;

/// Pins over games.
struct PinsOverGames {
    std::int64_t pins = 0;
    std::int64_t games = 0;

    void add(const BowledEvent& event);
    void remove(const BowledEvent& event);
    /// 0 where there are no games.
    [[nodiscard]] double average() const;
};

}  // namespace tallybrook
