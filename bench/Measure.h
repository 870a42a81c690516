#pragma once

#include "Place.h"
#include "Session.h"
#include "Stopwatch.h"

#include <cstddef>
#include <functional>

#include <benchmark/benchmark.h>

// What the works have in common.
namespace tallybrook::bench {

/// Measures one act, round after round. What `prepare` and `tidy` do is not measured.
void measure(benchmark::State& state, const std::function<void()>& act,
             const std::function<void()>& prepare = {}, const std::function<void()>& tidy = {});

/// One night after the other, so that each is looked at anew.
class NextNight {
public:
    explicit NextNight(const Place& place) : place_(place) {}
    int operator()() { return place_.nights[next_++ % place_.nights.size()]; }

private:
    const Place& place_;
    std::size_t next_ = 0;
};

}  // namespace tallybrook::bench
