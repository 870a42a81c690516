#include "figures/Leagues.h"

#include "runtime/TextCompare.h"

#include <algorithm>
#include <numeric>
#include <unordered_map>

namespace tallybrook {

Leagues::Leagues(const BowledEvents& events) {
    std::unordered_map<std::string, std::size_t> known;
    std::vector<League> met;
    for (const BowledEvent& event : events) {
        const auto [place, isNew] = known.try_emplace(foldCase(event.name), met.size());
        if (isNew)
            met.push_back({event.name});
        ++met[place->second].events;
        leagues_.push_back(place->second);
    }
    std::vector<std::size_t> order(met.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, std::ranges::greater(),
                             [&](std::size_t league) { return met[league].events; });
    std::vector<std::size_t> places(met.size());
    for (std::size_t place = 0; place < order.size(); ++place) {
        places[order[place]] = place;
        all_.push_back(met[order[place]]);
    }
    for (std::size_t& league : leagues_)
        league = places[league];
}

}  // namespace tallybrook
