#include "backup/Retention.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <set>

namespace tallybrook {

namespace {

using std::chrono::days;
using std::chrono::local_days;

std::int64_t secondOf(DateTime time) {
    return time.time_since_epoch().count();
}

std::int64_t dayOf(DateTime time) {
    return std::chrono::floor<days>(time).time_since_epoch().count();
}

std::int64_t weekOf(DateTime time) {
    constexpr local_days kSomeMonday{std::chrono::year{1969} / std::chrono::December / 29};
    return std::chrono::floor<std::chrono::weeks>(std::chrono::floor<days>(time) - kSomeMonday).count();
}

std::int64_t monthOf(DateTime time) {
    const std::chrono::year_month_day date{std::chrono::floor<days>(time)};
    return int{date.year()} * std::int64_t{12} + unsigned{date.month()};
}

/// Of backups up to some age, the newest of each span of time is kept.
struct Rule {
    std::optional<days> age;  // any where none is told
    std::int64_t (*spanOf)(DateTime);
};

constexpr std::array<Rule, 4> kRules{{{.age = days{2}, .spanOf = secondOf},
                                      {.age = days{14}, .spanOf = dayOf},
                                      {.age = days{182}, .spanOf = weekOf},
                                      {.age = std::nullopt, .spanOf = monthOf}}};

/// The moment up to which the backups, in ascending order, bear the clock out.
DateTime believed(const std::vector<DateTime>& times, DateTime now) {
    const auto isOfAnotherDay = [&](DateTime time) { return times.back() - time >= days{1}; };
    const auto newest = std::ranges::find_if(times.rbegin(), times.rend(), isOfAnotherDay);
    return std::min(now, newest == times.rend() ? times.front() : *newest);
}

}  // namespace

std::vector<DateTime> keptBackups(std::vector<DateTime> times, DateTime now) {
    std::ranges::sort(times, std::greater{});
    std::set<DateTime> kept;
    for (const Rule& rule : kRules) {
        std::optional<std::int64_t> lastSpan;
        for (const DateTime time : times) {
            const bool isNewestOfSpan = lastSpan != rule.spanOf(time);
            lastSpan = rule.spanOf(time);
            if (isNewestOfSpan && (!rule.age || now - time <= *rule.age))
                kept.insert(time);
        }
    }
    return {kept.begin(), kept.end()};
}

std::vector<DateTime> backupsToRemove(std::vector<DateTime> times, DateTime now) {
    constexpr std::size_t kMost = 3;
    std::vector<DateTime> removed;
    if (times.empty())
        return removed;
    std::ranges::sort(times);
    std::ranges::set_difference(times, keptBackups(times, believed(times, now)), std::back_inserter(removed));
    removed.resize(std::min(removed.size(), kMost));
    return removed;
}

}  // namespace tallybrook
