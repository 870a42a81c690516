#include "runtime/Clock.h"

#include <ctime>

namespace tallybrook {

int Clock::year() const {
    return int{std::chrono::year_month_day{std::chrono::floor<std::chrono::days>(now())}.year()};
}

DateTime SystemClock::now() const {
    return localTime(std::time(nullptr));
}

DateTime localTime(std::time_t moment) {
    std::tm local{};
    localtime_r(&moment, &local);
    return makeDate(local.tm_year + 1900, static_cast<unsigned>(local.tm_mon + 1),
                    static_cast<unsigned>(local.tm_mday)) +
           std::chrono::hours{local.tm_hour} + std::chrono::minutes{local.tm_min} +
           std::chrono::seconds{local.tm_sec};
}

}  // namespace tallybrook
