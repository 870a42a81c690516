#include "figures/BowledEvent.h"

#include <algorithm>
#include <cmath>

namespace tallybrook {

int BowledEvent::gamesCounted() const {
    return static_cast<int>(std::clamp(std::round(pinfall / average), 1.0, 1000.0));
}

void PinsOverGames::add(const BowledEvent& event) {
    pins += event.pinfall;
    games += event.gamesCounted();
}

void PinsOverGames::remove(const BowledEvent& event) {
    pins -= event.pinfall;
    games -= event.gamesCounted();
}

double PinsOverGames::average() const {
    return games > 0 ? static_cast<double>(pins) / static_cast<double>(games) : 0;
}

}  // namespace tallybrook
