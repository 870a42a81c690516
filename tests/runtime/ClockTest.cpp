#include "runtime/Clock.h"

#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>

#include <gtest/gtest.h>

namespace tallybrook {

namespace {

/// The machine stands in another time zone as long as the object lives.
class TimeZone {
public:
    explicit TimeZone(const char* zone) {
        if (const char* const before = std::getenv("TZ"))
            before_ = before;
        set(zone);
    }
    ~TimeZone() { set(before_ ? before_->c_str() : nullptr); }
    TimeZone(const TimeZone&) = delete;
    TimeZone& operator=(const TimeZone&) = delete;

private:
    static void set(const char* zone) {
        if (zone != nullptr)
            setenv("TZ", zone, 1);
        else
            unsetenv("TZ");
        tzset();
    }

    std::optional<std::string> before_;
};

TEST(LocalTime, IsThatOfTheTimeZone) {
    constexpr std::time_t kNewYear = 1767225600;  // midnight in Greenwich
    const DateTime newYear = makeDate(2026, 1, 1);
    for (const auto& [zone, hours] : {std::pair{"EST5", -5}, std::pair{"GMT0", 0}, std::pair{"CET-1", 1}}) {
        const TimeZone here(zone);
        EXPECT_EQ(localTime(kNewYear), newYear + std::chrono::hours{hours}) << zone;
    }
}

TEST(LocalTime, IsAnHourLaterInSummer) {
    const TimeZone here("CET-1CEST,M3.5.0,M10.5.0/3");
    constexpr std::time_t kJuly = 1782864000;  // the first, midnight in Greenwich
    EXPECT_EQ(localTime(kJuly), makeDate(2026, 7, 1) + std::chrono::hours{2});
}

}  // namespace

}  // namespace tallybrook
