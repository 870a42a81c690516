#include "Place.h"

#include "Plain.h"
#include "Session.h"

#include <string>

namespace tallybrook::bench {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kNights = 20;

/// Some of the events, evenly spread.
std::vector<int> nightsOf(const fs::path& logbook) {
    const PlainDatabase database(logbook);
    PlainStatement rows(
        database,
        "SELECT fldSessionNum FROM tblEventInfo WHERE fldNumGames = 3 AND 3 = (SELECT count(*) "
        "FROM tblGameInfo WHERE tblGameInfo.fldSessionNum = tblEventInfo.fldSessionNum AND "
        "fldScoreType = 'P' AND fldFrmsRecorded = 10)");
    std::vector<int> all;
    while (rows.step())
        all.push_back(rows.number(0));
    std::vector<int> spread;
    for (std::size_t i = 0; i < kNights; ++i)
        spread.push_back(all.at(all.size() * i / kNights));
    return spread;
}

}  // namespace

Place placeAt(const fs::path& folder, int events) {
    { const Session writesConfiguration(folder); }
    Place place{.events = events, .folder = folder, .nights = {}};
    place.nights = nightsOf(place.logbook());
    return place;
}

Place copySample(const fs::path& samples, int events, const fs::path& target) {
    const std::string name = std::to_string(events);
    fs::copy(samples / name, target / name, fs::copy_options::recursive);
    return placeAt(target / name, events);
}

}  // namespace tallybrook::bench
