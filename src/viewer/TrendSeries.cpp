#include "viewer/TrendSeries.h"

#include "viewer/EventMark.h"

#include <algorithm>

namespace tallybrook {

namespace {

constexpr std::size_t kMostChoices = 25;

int markOf(std::size_t league) {
    return static_cast<int>(std::min(league, static_cast<std::size_t>(kEventMarks) - 1));
}

QString nameOf(const League& league) {
    const QString name = QString::fromStdString(league.name).simplified();
    return name.isEmpty() ? QString("Without a name") : name;
}

}  // namespace

TrendChoices::TrendChoices(const BowledEvents& events) : events_(events), leagues_(events) {}

QStringList TrendChoices::names() const {
    if (leagues_.all().size() < 2)
        return {};
    QStringList names{"All events"};
    for (std::size_t league = 0; league < std::min(leagues_.all().size(), kMostChoices); ++league)
        names += nameOf(leagues_.all()[league]);
    return names;
}

TrendSeries TrendChoices::seriesOf(int choice) const {
    TrendSeries series;
    for (std::size_t event = 0; event < events_.size(); ++event) {
        const std::size_t league = leagues_.of(event);
        if (choice > 0 && league != static_cast<std::size_t>(choice - 1))
            continue;
        series.events.push_back(events_[event]);
        series.marks.push_back(markOf(league));
    }
    series.moving = movingAverages(series.events);
    series.ofSeason = seasonAverages(series.events);
    series.months = gamesPerMonth(series.events);
    series.ends = seriesEnds(series.events);
    return series;
}

std::shared_ptr<const TrendSeries> TrendChoices::at(int choice) const {
    if (choice != shown_) {
        series_ = std::make_shared<TrendSeries>(seriesOf(choice));
        shown_ = choice;
    }
    return series_;
}

std::vector<TrendChoices::Marked> TrendChoices::marked(int choice) const {
    const std::vector<League>& all = leagues_.all();
    if (choice > 0) {
        const auto league = static_cast<std::size_t>(choice - 1);
        return {{markOf(league), nameOf(all[league])}};
    }
    constexpr std::size_t kOwn = kEventMarks - 1;
    std::vector<Marked> marked;
    for (std::size_t league = 0; league < std::min(all.size(), kOwn); ++league)
        marked.push_back({markOf(league), nameOf(all[league])});
    if (all.size() > kOwn)
        marked.push_back({kEventMarks - 1, "Others"});
    return marked;
}

}  // namespace tallybrook
