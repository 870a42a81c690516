#include "Runs.h"
#include "Work.h"

namespace tallybrook::bench {

const std::vector<Work>& works() {
    constexpr Effort kAll{1, {9, 9, 3, 3, 3}};    // grows with the logbook
    constexpr Effort kOnce{1, {3, 3, 1, 1, 1}};   // takes long
    constexpr Effort kOne{30, {5, 5, 5, 5, 5}};   // should not grow
    constexpr Effort kFresh{1, {9, 9, 9, 9, 9}};  // the same, each time in a program started for it
    const Target twoCommits = atMost(2);

    static const std::vector<Work> works{
        {"statistical report", statisticalReport, statisticalReportLimit, kAll, {{"ms", alwaysWithin(1.5)}}},
        {"peak of memory in it", peak, peakLimit, kOnce, {{"MiB", atMost(12)}}},
        {"event report", eventReport, eventReportLimit, kOne, {{"ms", sameInAllSizes()}}},
        {"consistency check", consistencyCheck, consistencyCheckLimit, kAll, {{"ms", within(1.5)}}},
        {"import of all",
         importAll,
         importAllLimit,
         kOnce,
         {{"ms", within(1.7)}, {kMsToTheEnd, within(2.2)}}},
        {"import of one event",
         importOne,
         importOneLimit,
         kFresh,
         {{"ms", sameInAllSizes()}, {kMsToTheEnd, none()}}},
        {"event list", eventList, eventListLimit, kAll, {{"ms", within(2)}}},
        {"event search", eventSearch, eventSearchLimit, kAll, {{"ms", within(2)}}},
        {"game list", gameList, gameListLimit, kAll, {{"ms", within(2)}}},
        {"save frame", saveFrame, saveFrameLimit, kOne, {{"ms", sameInAllSizes()}, {"commits", twoCommits}}},
        {"add frame", addFrame, addFrameLimit, kOne, {{"ms", sameInAllSizes()}, {"commits", twoCommits}}},
        {"save game", saveGame, saveGameLimit, kOne, {{"ms", sameInAllSizes()}, {"commits", twoCommits}}},
        {"save event", saveEvent, saveEventLimit, kOne, {{"ms", sameInAllSizes()}, {"commits", twoCommits}}},
        {"save event at once", saveFirst, saveFirstLimit, kAll, {{"ms wall", sameInAllSizes()}}},
        {"archive out", archiveOut, textOutLimit, kOnce, {{"ms", within(3)}}},
        {"CSV out", csvOut, textOutLimit, kOnce, {{"ms", within(3)}}},
        {"workbook out", workbookOut, workbookOutLimit, kOnce, {{"ms", within(3)}}},
        {"archive in", archiveIn, archiveInLimit, kOnce, {{"ms", within(3)}}},
        {"old logbook in", carryIn, carryInLimit, kOnce, {{"ms", within(3)}}},
        {"frame screen", frameClicks, nullptr, kOnce, {{"ms, p99", atMost(8)}}},
        {"frame screen, large", frameClicksLarge, nullptr, kOnce, {{"ms, p99", atMost(16)}}},
        {"start",
         start,
         startLimit,
         kFresh,
         {{"ms", both(atMost(25), sameInAllSizes())}, {kMsToFirstPaint, atMost(100)}}}};
    return works;
}

}  // namespace tallybrook::bench
