#include "sample/Logbook.h"

#include "runtime/TextForms.h"

namespace tallybrook::sample {

int Event::seriesTotal() const {
    int total = 0;
    for (const Game& game : games)
        total += game.score;
    return total;
}

double Event::seriesAverage() const {
    return games.empty() ? 0
                         : readFormatted(formatNumber(seriesTotal() / static_cast<double>(games.size()), 2));
}

void Counts::add(const Event& event) {
    ++events;
    games += static_cast<int>(event.games.size());
    for (const Game& game : event.games)
        frames += static_cast<int>(game.frames.size());
}

}  // namespace tallybrook::sample
