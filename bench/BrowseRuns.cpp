#include "Limits.h"
#include "Measure.h"
#include "Runs.h"

namespace tallybrook::bench {

namespace {

/// A search, from its button to the list of its hits.
void search(State& state, const Place& place, const SearchScreen& screen, const Criterion& criterion) {
    Session session(place.folder);
    measure(
        state,
        [&] {
            session.click("cmdSearch");
            session.drawList();
        },
        [&] { session.prepareSearch(screen, criterion); }, [&] { session.returnToMain(); });
}

/// The same rows, in the order in which the list shows them.
void readLimit(State& state, const Place& place, const char* sql) {
    PlainDatabase logbook(place.logbook());
    measure(state, [&] { readAll(logbook, sql); });
}

}  // namespace

void eventList(State& state, const Place& place) {
    Session session(place.folder);
    measure(
        state,
        [&] {
            session.handOverTo("frmEventList");
            session.drawList();
        },
        [&] { session.state().gMode = kEdit; }, [&] { session.returnToMain(); });
}

void eventListLimit(State& state, const Place& place) {
    readLimit(
        state, place,
        "SELECT * FROM tblEventInfo ORDER BY fldEventName COLLATE NOCASE, fldDateBowled, fldSessionNum");
}

void eventSearch(State& state, const Place& place) {
    search(state, place, kEventSearch, {"Event Type", "is", "LEAGUE"});
}

void eventSearchLimit(State& state, const Place& place) {
    readLimit(state, place,
              "SELECT * FROM tblEventInfo WHERE fldEventType = 'LEAGUE' COLLATE NOCASE "
              "ORDER BY fldEventType COLLATE NOCASE, fldSessionNum");
}

void gameList(State& state, const Place& place) {
    search(state, place, kGameSearch, {"Game Score", "is greater or equal to", "180"});
}

void gameListLimit(State& state, const Place& place) {
    readLimit(state, place,
              "SELECT * FROM tblGameInfo WHERE fldGameScore >= 180 ORDER BY fldGameScore, fldGameKey");
}

}  // namespace tallybrook::bench
