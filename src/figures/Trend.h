#pragma once

#include "figures/BowledEvent.h"

#include <optional>

// How a game goes over the years, from the events in the order of their dates.
namespace tallybrook {

/// How many events the moving average is over.
inline constexpr std::size_t kMovingEvents = 12;

/// Behind each event: pins over games of it and those before it, up to twelve in all.
std::vector<double> movingAverages(const BowledEvents& events);

/// Behind each event: pins over games since its season or summer began.
std::vector<double> seasonAverages(const BowledEvents& events);

/// The games of a month.
struct MonthOfGames {
    std::chrono::year_month month;
    int games;

    bool operator==(const MonthOfGames&) const = default;
};

/// The months in which games were bowled, in their order.
std::vector<MonthOfGames> gamesPerMonth(const BowledEvents& events);

/// The highest and the lowest series among the events of the most usual length, by their places in the list;
/// of equal ones the first.
struct SeriesEnds {
    int games;  ///< the length
    std::size_t high;
    std::size_t low;
};

/// Nothing where there are no events.
std::optional<SeriesEnds> seriesEnds(const BowledEvents& events);

/// A day on which there were games.
struct NightOfGames {
    std::chrono::local_days day;
    int events = 0;
    PinsOverGames total = {};
};

/// The days of the events, in their order.
std::vector<NightOfGames> nightsOf(const BowledEvents& events);

/// The averages that part nights into so many classes of about the same size, from the lowest upward. Fewer
/// where the nights do not differ enough. A night belongs to the class behind the last bound that it reaches.
std::vector<double> classBounds(const std::vector<NightOfGames>& nights, std::size_t classes);

}  // namespace tallybrook
