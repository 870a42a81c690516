#pragma once

#include <chrono>

namespace tallybrook {

/// A calendar date with a time of day, to the second, without a time zone.
using DateTime = std::chrono::local_seconds;

/// The date that a variable holds before one is put in; its text is that of midnight alone.
inline constexpr DateTime kZeroDate{
    std::chrono::local_days{std::chrono::year{1899} / std::chrono::December / 30}};

/// The date at midnight; `month` and `day` count from 1. The date must exist.
constexpr DateTime makeDate(int year, unsigned month, unsigned day) {
    return DateTime{
        std::chrono::local_days{std::chrono::year{year} / std::chrono::month{month} / std::chrono::day{day}}};
}

/// The same day at midnight.
constexpr DateTime dateOnly(DateTime when) {
    return std::chrono::floor<std::chrono::days>(when);
}

}  // namespace tallybrook
