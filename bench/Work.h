#pragma once

#include "Place.h"
#include "Target.h"

#include <array>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

namespace tallybrook::bench {

/// Does a work round after round and tells the time of each; counters tell what else was measured.
using Run = void (*)(benchmark::State&, const Place&);

/// One figure of a work: what was counted under its unit, or else the time.
struct Figure {
    std::string unit;
    Target target;
};

/// How often a work is measured. The figure is the median of the repetitions, each of them the mean of its
/// rounds in one session of the program.
struct Effort {
    int rounds;
    std::array<int, kSizes.size()> repetitions;  // in each size
};

/// Something that the program does, and the least that could do the same.
struct Work {
    std::string name;
    Run program;
    Run limit;  // nullptr where nobody could say what the least is
    Effort effort;
    std::vector<Figure> figures;
};

/// Everything that is measured, in the order of the table.
const std::vector<Work>& works();

}  // namespace tallybrook::bench
