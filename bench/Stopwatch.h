#pragma once

#include <ctime>

namespace tallybrook::bench {

/// Which time is taken: that of the processor for this thread or for all of the process, the kernel's work
/// for it included, which other programs on the machine hardly disturb; or, where somebody is waited for,
/// that of the clock on the wall.
enum class Time : clockid_t {
    Processor = CLOCK_THREAD_CPUTIME_ID,
    Process = CLOCK_PROCESS_CPUTIME_ID,
    Wall = CLOCK_MONOTONIC
};

/// Seconds since the clock began.
inline double secondsOf(Time clock) {
    timespec time{};
    clock_gettime(static_cast<clockid_t>(clock), &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// Runs from its making on.
class Stopwatch {
public:
    explicit Stopwatch(Time clock = Time::Processor) : clock_(clock), start_(secondsOf(clock)) {}

    [[nodiscard]] double seconds() const { return secondsOf(clock_) - start_; }

private:
    Time clock_;
    double start_;
};

}  // namespace tallybrook::bench
