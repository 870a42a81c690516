#include "Limits.h"
#include "Measure.h"
#include "Runs.h"
#include "StatisticsLimit.h"

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace tallybrook::bench {

namespace fs = std::filesystem;

namespace {

std::string bytesOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// The row of an event in a list that is in the order of the keys.
int rowOf(const Grid& list, int event) {
    int first = 1;
    for (int last = list.rowCount(); first < last;) {
        const int middle = (first + last) / 2;
        if (std::stoi(list.cell(middle, 0)) < event)
            first = middle + 1;
        else
            last = middle;
    }
    return first;
}

}  // namespace

void statisticalReport(State& state, const Place& place) {
    Session session(place.folder);
    session.display.chosen = place.beside("statistics.txt");
    session.handOverTo("frmEventStats");
    measure(state, [&] { session.measuredClick("cmdGenReport"); });
}

void statisticalReportLimit(State& state, const Place& place) {
    const fs::path file = place.beside("statistics-limit.txt");
    const fs::path programs = place.beside("statistics.txt");
    PlainDatabase logbook(place.logbook());
    measure(state, [&] { writeStatistics(logbook, file); });
    if (fs::exists(programs) && bytesOf(programs) != bytesOf(file))
        throw std::runtime_error("the limit does something else than the program: " + file.string());
}

void eventReport(State& state, const Place& place) {
    Session session(place.folder);
    session.display.chosen = place.beside("event.txt");
    session.prepareSearch(kEventSearch, {"Number of Games", "is equal to", "3"});
    session.click("cmdSearch");
    session.drawList();
    NextNight next(place);
    measure(
        state, [&] { session.measuredClick("cmdGetRecord"); },
        [&] { session.selectRow(rowOf(session.list(), next())); });
}

void eventReportLimit(State& state, const Place& place) {
    PlainDatabase logbook(place.logbook());
    NextNight next(place);
    measure(state, [&] { writeEvent(logbook, next(), place.beside("event-limit.txt")); });
}

}  // namespace tallybrook::bench
