#include "carry/Figures.h"

namespace tallybrook::carry {

std::int64_t Figures::pins() const {
    std::int64_t pins = 0;
    for (const auto& [key, event] : byEvent)
        pins += event.pins;
    return pins;
}

Figures figuresOf(const SQLite::Database& logbook) {
    Figures figures;
    SQLite::Statement events(logbook, "SELECT coalesce(fldSessionNum, 0), fldSeriesTot FROM tblEventInfo");
    for (; events.executeStep(); ++figures.events) {
        EventFigures& event = figures.byEvent[events.getColumn(0).getInt64()];
        event.isThere = true;
        event.seriesTotal = events.getColumn(1).getInt64();
    }
    SQLite::Statement games(
        logbook,
        "SELECT coalesce(fldSessionNum, 0), count(*), total(fldGameScore) FROM tblGameInfo "
        "GROUP BY 1");
    while (games.executeStep()) {
        EventFigures& event = figures.byEvent[games.getColumn(0).getInt64()];
        figures.games += event.games = games.getColumn(1).getInt64();
        event.pins = games.getColumn(2).getInt64();
    }
    SQLite::Statement frames(logbook,
                             "SELECT coalesce(fldSessionNum, 0), count(*) FROM tblFrameInfo GROUP BY 1");
    while (frames.executeStep()) {
        EventFigures& event = figures.byEvent[frames.getColumn(0).getInt64()];
        figures.frames += event.frames = frames.getColumn(1).getInt64();
    }
    return figures;
}

}  // namespace tallybrook::carry
