#include "MemoryWatch.h"
#include "Processes.h"
#include "Runs.h"
#include "Session.h"
#include "StatisticsLimit.h"

#include <fstream>
#include <string>

namespace tallybrook::bench {

namespace fs = std::filesystem;

namespace {

/// Runs this program anew for what it then writes, a number of kibibytes.
void peakOf(State& state, const Place& place, const char* option) {
    for (auto round : state) {
        static_cast<void>(round);
        const std::string kibibytes = outputOf({"/proc/self/exe", option, place.folder.string()});
        state.counters["MiB"] = std::stod(kibibytes) / 1024;
    }
}

/// The player with the real windows, with nothing drawn on any display. `script` is what it plays.
void playOnWindows(State& state, const Place& place, const char* script) {
    const fs::path file = place.beside("script.txt");
    std::ofstream(file) << script;
    for (auto round : state) {
        static_cast<void>(round);
        state.SetIterationTime(processorTimeOf(
            {TALLYBROOK_PLAY, "--display", "desktop", "--data", place.folder.string(), file.string()}));
    }
}

}  // namespace

void peak(State& state, const Place& place) {
    peakOf(state, place, "--peak-of-program");
}

void peakLimit(State& state, const Place& place) {
    peakOf(state, place, "--peak-of-limit");
}

long peakOfProgram(const fs::path& folder) {
    Session session(folder);
    session.display.chosen = folder / "peak.txt";
    session.handOverTo("frmEventStats");
    const MemoryWatch memory;
    session.measuredClick("cmdGenReport");
    return memory.peak();
}

long peakOfLimit(const fs::path& folder) {
    PlainDatabase logbook(folder / "Tallybrook_DB.mdb");
    const MemoryWatch memory;
    writeStatistics(logbook, folder / "peak.txt");
    return memory.peak();
}

void start(State& state, const Place& place) {
    playOnWindows(state, place, "start\nanswer No\n");
}

void startLimit(State& state, const Place& place) {
    playOnWindows(state, place, "note \"no program, just the toolkit\"\n");
}

}  // namespace tallybrook::bench
