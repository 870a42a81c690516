#pragma once

#include "figures/BowledEvent.h"

namespace tallybrook {

/// Events that bear one name, whatever its case: a league, a tournament of every year, practice.
struct League {
    std::string name;  ///< as the first of its events has it
    std::size_t events = 0;
};

/// The leagues of a list of events.
class Leagues {
public:
    explicit Leagues(const BowledEvents& events);

    /// Those with the most events first; of equally many the one that came first.
    [[nodiscard]] const std::vector<League>& all() const { return all_; }
    /// The place among all of an event's league, by the event's place in the list.
    [[nodiscard]] std::size_t of(std::size_t event) const { return leagues_[event]; }

private:
    std::vector<League> all_;
    std::vector<std::size_t> leagues_;  // of each event
};

}  // namespace tallybrook
