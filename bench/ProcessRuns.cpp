#include "MemoryWatch.h"
#include "Processes.h"
#include "Runs.h"
#include "Session.h"
#include "StatisticsLimit.h"
#include "Stopwatch.h"

#include <sstream>
#include <string>
#include <vector>

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

/// Starts what is measured anew, which tells of its processor's time and of its first paint.
void startAnew(State& state, const std::vector<std::string>& command) {
    for (auto round : state) {
        static_cast<void>(round);
        const double before = secondsOf(Time::Wall);
        std::istringstream output(outputOf(command));
        double processor = 0;
        double firstPaint = 0;
        output >> processor >> firstPaint;
        state.SetIterationTime(processor);
        state.counters[kMsToFirstPaint] = (firstPaint - before) * 1000;
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
    startAnew(state, {TALLYBROOK_START, place.folder.string()});
}

void startLimit(State& state, const Place&) {
    startAnew(state, {TALLYBROOK_START});
}

}  // namespace tallybrook::bench
