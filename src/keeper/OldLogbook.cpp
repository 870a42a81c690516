#include "keeper/OldLogbook.h"

#include "keeper/ExitStatus.h"
#include "keeper/Summary.h"

#include <vector>

#include <fmt/format.h>

namespace tallybrook::keeper {

namespace {

std::string inWords(const std::vector<carry::CarriedTable>& tables) {
    std::string text = fmt::format("{:<14}{:>14}{:>10}{:>14}\n", "", "as it says", "read", "carried over");
    for (const carry::CarriedTable& table : tables)
        text += fmt::format("{:<14}{:>14}{:>10}{:>14}\n", table.name, table.told, table.read, table.carried);
    return text;
}

/// The events whose games come to something else than is recorded with the event.
std::string otherTotals(const carry::Figures& figures) {
    std::string text;
    for (const auto& [key, event] : figures.byEvent) {
        if (event.isThere && event.games != 0 && event.pins != event.seriesTotal)
            text += fmt::format("    event {}: recorded {}, its games come to {}\n", key, event.seriesTotal,
                                event.pins);
    }
    return text.empty()
               ? text
               : "Events whose recorded total is not that of their games, in the old logbook too:\n" + text;
}

std::string notesIn(const carry::CarriedOver& carried) {
    std::string text;
    for (const std::string& note : carried.notes)
        text += "    " + note + "\n";
    if (carried.furtherNotes != 0)
        text += fmt::format("    and {} more of the kind\n", carried.furtherNotes);
    return text.empty() ? text : "What did not come over as it was:\n" + text;
}

}  // namespace

carry::CarriedOver takeInOldLogbook(const HeldLogbook& place, const std::filesystem::path& oldLogbook,
                                    const Clock& clock, Progress& progress) {
    try {
        return carry::carryOver({.oldLogbook = oldLogbook, .logbook = place.file()}, clock, progress);
    } catch (const carry::OldLogbookRefused& refused) {
        throw Refused(ExitStatus::BadInput, refused.what());
    } catch (const carry::PlaceTaken& taken) {
        throw Refused(ExitStatus::Failed, taken.what());
    }
}

std::string inWords(const carry::CarriedOver& carried) {
    const carry::Figures& figures = carried.figures;
    std::string text = fmt::format(
        "Carried over: {}, {} pins in all.\n",
        inWords(Counts{.events = figures.events, .games = figures.games, .frames = figures.frames}),
        figures.pins());
    text +=
        "The new logbook was read again: rows, pins and series totals of each event are those that were "
        "read.\n";
    text += inWords(carried.tables) + otherTotals(figures) + notesIn(carried);
    if (carried.oldLogbookNow)
        text += fmt::format("The old logbook lies here now: {}\n", carried.oldLogbookNow->string());
    return text;
}

}  // namespace tallybrook::keeper
