#include "Place.h"
#include "Runs.h"
#include "Table.h"
#include "Work.h"

#include <exception>
#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

namespace fs = std::filesystem;

using namespace tallybrook::bench;

namespace {

void plan(const std::string& name, Run run, const Place& place, int rounds, int repetitions) {
    benchmark::RegisterBenchmark(name.c_str(),
                                 [run, place](benchmark::State& state) {
                                     std::cerr << '.' << std::flush;
                                     run(state, place);
                                 })
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond)
        ->Iterations(rounds)
        ->Repetitions(repetitions);
}

void planAll(const std::vector<Place>& places) {
    for (const Work& work : works()) {
        for (std::size_t size = 0; const Place& place : places) {
            for (const Run run : {work.program, work.limit}) {
                if (run != nullptr)
                    plan(Results::nameOf(work.name, place.events, run == work.program), run, place,
                         work.effort.rounds, work.effort.repetitions.at(size));
            }
            ++size;
        }
    }
}

/// Does the program's part of every work once, in one logbook, to be watched from outside.
void doOnce(const Place& place) {
    for (const Work& work : works())
        plan(work.name, work.program, place, 1, 1);
    Results ignored;
    if (benchmark::RunSpecifiedBenchmarks(&ignored) == 0)
        throw std::runtime_error("no such work");
}

/// Measures everything with copies of the samples, made in a folder that is left to the caller: of all sizes
/// up to the first of which there is none.
void measureAll(const fs::path& samples, const fs::path& folder) {
    std::vector<Place> places;
    places.reserve(kSizes.size());
    for (const int events : kSizes) {
        if (!fs::exists(samples / std::to_string(events)))
            break;
        places.push_back(copySample(samples, events, folder));
    }
    planAll(places);
    Results results;
    benchmark::RunSpecifiedBenchmarks(&results);
    std::cerr << '\n';
    std::cout << tableOf(results);
}

}  // namespace

int main(int argc, char** argv) {
    try {
        benchmark::Initialize(&argc, argv);
        const std::vector<std::string> arguments(argv + 1, argv + argc);
        if (arguments.size() == 3 && arguments[0] == "--clicks") {
            std::cout << slowestClicks(arguments[1], arguments[2]);
            return 0;
        }
        if (arguments.size() != 2)
            throw std::runtime_error(
                "usage: tallybrook-bench SAMPLES FOLDER [--benchmark_filter=WORK]\n"
                "       tallybrook-bench --once DATA --benchmark_filter=WORK\n"
                "       tallybrook-bench --peak-of-program|--peak-of-limit DATA\n"
                "       tallybrook-bench --clicks DATA WIDTHxHEIGHT");
        if (arguments[0] == "--peak-of-program")
            std::cout << peakOfProgram(arguments[1]);
        else if (arguments[0] == "--once")
            doOnce(placeAt(arguments[1], 0));
        else if (arguments[0] == "--peak-of-limit")
            std::cout << peakOfLimit(arguments[1]);
        else
            measureAll(arguments[0], arguments[1]);
        return 0;
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return 1;
    }
}
