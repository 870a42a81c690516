#include "player/Moment.h"

#include <algorithm>
#include <charconv>

#include <fmt/format.h>

namespace tallybrook {

namespace {

constexpr std::string_view kForm = "0000-00-00 00:00:00";

bool isDigit(char letter) {
    return letter >= '0' && letter <= '9';
}

bool hasForm(std::string_view text) {
    return std::ranges::equal(
        text, kForm, [](char letter, char form) { return form == '0' ? isDigit(letter) : letter == form; });
}

int number(std::string_view text, std::size_t at, std::size_t digits) {
    int value = 0;
    std::from_chars(text.data() + at, text.data() + at + digits, value);
    return value;
}

}  // namespace

std::optional<DateTime> readMoment(std::string_view text) {
    if (!hasForm(text))
        return std::nullopt;
    const std::chrono::year_month_day day{std::chrono::year{number(text, 0, 4)},
                                          std::chrono::month{static_cast<unsigned>(number(text, 5, 2))},
                                          std::chrono::day{static_cast<unsigned>(number(text, 8, 2))}};
    const int hour = number(text, 11, 2);
    const int minute = number(text, 14, 2);
    const int second = number(text, 17, 2);
    if (!day.ok() || hour > 23 || minute > 59 || second > 59)
        return std::nullopt;
    return DateTime{std::chrono::local_days{day}} + std::chrono::hours{hour} + std::chrono::minutes{minute} +
           std::chrono::seconds{second};
}

std::string plainDate(DateTime when) {
    const std::chrono::year_month_day day{std::chrono::floor<std::chrono::days>(when)};
    return fmt::format("{:04}-{:02}-{:02}", static_cast<int>(day.year()), static_cast<unsigned>(day.month()),
                       static_cast<unsigned>(day.day()));
}

}  // namespace tallybrook
