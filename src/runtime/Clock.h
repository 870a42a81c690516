#pragma once

#include "runtime/DateTime.h"

#include <ctime>

namespace tallybrook {

/// A moment of the machine's clock as local date and time.
DateTime localTime(std::time_t moment);

/// Where the program takes the time from.
class Clock {
public:
    virtual ~Clock() = default;

    /// Local date and time, to the second.
    [[nodiscard]] virtual DateTime now() const = 0;

    /// The current calendar year.
    [[nodiscard]] int year() const;
};

/// The machine's own clock.
class SystemClock : public Clock {
public:
    [[nodiscard]] DateTime now() const override;
};

/// A clock that stands still until it is set.
class SettableClock : public Clock {
public:
    explicit SettableClock(DateTime now) : now_(now) {}
    [[nodiscard]] DateTime now() const override { return now_; }
    void set(DateTime now) { now_ = now; }

private:
    DateTime now_;
};

}  // namespace tallybrook
