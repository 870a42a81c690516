#include "Measure.h"

namespace tallybrook::bench {

void measure(benchmark::State& state, const std::function<void()>& act, const std::function<void()>& prepare,
             const std::function<void()>& tidy) {
    for (auto round : state) {
        static_cast<void>(round);
        if (prepare)
            prepare();
        const Stopwatch watch;
        act();
        state.SetIterationTime(watch.seconds());
        if (tidy)
            tidy();
    }
}

}  // namespace tallybrook::bench
