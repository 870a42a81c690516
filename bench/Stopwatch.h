#pragma once

#include <ctime>

namespace tallybrook::bench {

/// Which time is taken: that of the processor for this thread, the kernel's work for it included, which other
/// programs on the machine hardly disturb; or, where somebody is waited for, that of the clock on the wall.
enum class Time : clockid_t { Processor = CLOCK_THREAD_CPUTIME_ID, Wall = CLOCK_MONOTONIC };

/// Runs from its making on.
class Stopwatch {
public:
    explicit Stopwatch(Time time = Time::Processor) : clock_(static_cast<clockid_t>(time)), start_(now()) {}

    [[nodiscard]] double seconds() const { return now() - start_; }

private:
    [[nodiscard]] double now() const {
        timespec time{};
        clock_gettime(clock_, &time);
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
    }

    clockid_t clock_;
    double start_;
};

}  // namespace tallybrook::bench
