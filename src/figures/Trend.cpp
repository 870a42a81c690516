#include "figures/Trend.h"

#include "bowling/Season.h"

#include <algorithm>
#include <map>

namespace tallybrook {

namespace {

std::chrono::year_month monthOf(std::chrono::local_days day) {
    const std::chrono::year_month_day date(day);
    return date.year() / date.month();
}

/// How many games most events have; of equally many the longer ones.
int usualLength(const BowledEvents& events) {
    std::map<int, int> counts;
    for (const BowledEvent& event : events)
        ++counts[event.gamesCounted()];
    const auto byCount = [](const auto& entry) { return std::pair(entry.second, entry.first); };
    return std::ranges::max_element(counts, {}, byCount)->first;
}

}  // namespace

std::vector<double> movingAverages(const BowledEvents& events) {
    std::vector<double> averages;
    averages.reserve(events.size());
    PinsOverGames sum;
    for (std::size_t index = 0; index < events.size(); ++index) {
        sum.add(events[index]);
        if (index >= kMovingEvents)
            sum.remove(events[index - kMovingEvents]);
        averages.push_back(sum.average());
    }
    return averages;
}

std::vector<double> seasonAverages(const BowledEvents& events) {
    std::vector<double> averages;
    averages.reserve(events.size());
    PinsOverGames sum;
    for (std::size_t index = 0; index < events.size(); ++index) {
        if (index > 0 && seasonOf(events[index].date) != seasonOf(events[index - 1].date))
            sum = {};
        sum.add(events[index]);
        averages.push_back(sum.average());
    }
    return averages;
}

std::vector<MonthOfGames> gamesPerMonth(const BowledEvents& events) {
    std::vector<MonthOfGames> months;
    for (const BowledEvent& event : events) {
        if (months.empty() || months.back().month != monthOf(event.date))
            months.push_back({monthOf(event.date), 0});
        months.back().games += event.gamesCounted();
    }
    return months;
}

std::optional<SeriesEnds> seriesEnds(const BowledEvents& events) {
    if (events.empty())
        return std::nullopt;
    const int length = usualLength(events);
    std::optional<SeriesEnds> ends;
    for (std::size_t index = 0; index < events.size(); ++index) {
        if (events[index].gamesCounted() != length)
            continue;
        if (!ends)
            ends = SeriesEnds{length, index, index};
        if (events[index].pinfall > events[ends->high].pinfall)
            ends->high = index;
        if (events[index].pinfall < events[ends->low].pinfall)
            ends->low = index;
    }
    return ends;
}

std::vector<NightOfGames> nightsOf(const BowledEvents& events) {
    std::vector<NightOfGames> nights;
    for (const BowledEvent& event : events) {
        if (nights.empty() || nights.back().day != event.date)
            nights.push_back({event.date});
        ++nights.back().events;
        nights.back().total.add(event);
    }
    return nights;
}

std::vector<double> classBounds(const std::vector<NightOfGames>& nights, std::size_t classes) {
    std::vector<double> averages;
    averages.reserve(nights.size());
    for (const NightOfGames& night : nights)
        averages.push_back(night.total.average());
    std::ranges::sort(averages);
    std::vector<double> bounds;
    for (std::size_t bound = 1; bound < classes && !averages.empty(); ++bound) {
        const double average = averages[bound * averages.size() / classes];
        if (average > (bounds.empty() ? averages.front() : bounds.back()))
            bounds.push_back(average);
    }
    return bounds;
}

}  // namespace tallybrook
