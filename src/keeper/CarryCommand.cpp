#include "keeper/CarryCommand.h"

#include "keeper/Answer.h"
#include "keeper/OldLogbook.h"

namespace tallybrook::keeper {

namespace {

Json tablesOf(const carry::CarriedOver& carried) {
    Json tables = Json::array();
    for (const carry::CarriedTable& table : carried.tables)
        tables.push_back(
            {{"name", table.name}, {"told", table.told}, {"read", table.read}, {"carried", table.carried}});
    return tables;
}

Json eventsOf(const carry::Figures& figures) {
    Json events = Json::array();
    for (const auto& [key, event] : figures.byEvent)
        events.push_back({{"key", key},
                          {"isThere", event.isThere},
                          {"games", event.games},
                          {"frames", event.frames},
                          {"pins", event.pins},
                          {"seriesTotal", event.seriesTotal}});
    return events;
}

Json jsonOf(const carry::CarriedOver& carried) {
    const carry::Figures& figures = carried.figures;
    Json json{
        {"holds", jsonOf(Counts{.events = figures.events, .games = figures.games, .frames = figures.frames})},
        {"pins", figures.pins()},
        {"tables", tablesOf(carried)},
        {"events", eventsOf(figures)},
        {"notes", carried.notes},
        {"furtherNotes", carried.furtherNotes}};
    json["oldLogbook"] = carried.oldLogbookNow ? Json(carried.oldLogbookNow->string()) : Json(nullptr);
    return json;
}

}  // namespace

void carryOldLogbookOver(const Errand& errand) {
    const HeldLogbook place(errand.options.data);
    const bool isNamed = !errand.options.words.empty();
    const std::filesystem::path old =
        isNamed ? std::filesystem::path(errand.options.words.front()) : place.file();
    const carry::CarriedOver carried = takeInOldLogbook(place, old, errand.clock, errand.progress);
    answer(errand, inWords(carried), jsonOf(carried));
}

}  // namespace tallybrook::keeper
