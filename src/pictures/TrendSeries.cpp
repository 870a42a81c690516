#include "pictures/TrendSeries.h"

#include "pictures/EventMark.h"

#include <algorithm>
#include <utility>

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

std::shared_ptr<const TrendSeries> seriesOf(BowledEvents events, std::vector<int> marks) {
    const auto series = std::make_shared<TrendSeries>();
    series->events = std::move(events);
    series->marks = std::move(marks);
    series->moving = movingAverages(series->events);
    series->ofSeason = seasonAverages(series->events);
    series->months = gamesPerMonth(series->events);
    series->ends = seriesEnds(series->events);
    return series;
}

}  // namespace

TrendChoices::TrendChoices(BowledEvents events) : leagues_(events) {
    std::vector<int> marks;
    marks.reserve(events.size());
    for (std::size_t event = 0; event < events.size(); ++event)
        marks.push_back(markOf(leagues_.of(event)));
    all_ = series_ = seriesOf(std::move(events), std::move(marks));
}

QStringList TrendChoices::names() const {
    if (leagues_.all().size() < 2)
        return {};
    QStringList names{"All events"};
    for (std::size_t league = 0; league < std::min(leagues_.all().size(), kMostChoices); ++league)
        names += nameOf(leagues_.all()[league]);
    return names;
}

std::shared_ptr<const TrendSeries> TrendChoices::leagueOf(int choice) const {
    const auto league = static_cast<std::size_t>(choice - 1);
    BowledEvents events;
    for (std::size_t event = 0; event < all_->events.size(); ++event) {
        if (leagues_.of(event) == league)
            events.push_back(all_->events[event]);
    }
    std::vector<int> marks(events.size(), markOf(league));
    return seriesOf(std::move(events), std::move(marks));
}

std::shared_ptr<const TrendSeries> TrendChoices::at(int choice) const {
    if (choice != shown_) {
        series_ = choice == 0 ? all_ : leagueOf(choice);
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
