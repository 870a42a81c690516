#pragma once

#include <chrono>
#include <string>

namespace tallybrook {

/// When people bowl together: the season from September to May, or the summer between two seasons.
struct Season {
    int year;  ///< in which it begins
    bool isSummer;

    friend constexpr auto operator<=>(const Season&, const Season&) = default;
};

/// The season or summer that a day falls in.
constexpr Season seasonOf(std::chrono::local_days day) {
    const std::chrono::year_month_day date(day);
    const int year = static_cast<int>(date.year());
    if (date.month() >= std::chrono::September)
        return {year, false};
    return date.month() >= std::chrono::June ? Season{year, true} : Season{year - 1, false};
}

/// As in "2025/26" or "Summer 2026".
std::string nameOf(Season season);

}  // namespace tallybrook
