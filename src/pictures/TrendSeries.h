#pragma once

#include "figures/Leagues.h"
#include "figures/Trend.h"

#include <QStringList>
#include <memory>

namespace tallybrook {

/// The events of one choice with all that their trend shows.
struct TrendSeries {
    BowledEvents events;
    std::vector<int> marks;  ///< of each event
    std::vector<double> moving;
    std::vector<double> ofSeason;
    std::vector<MonthOfGames> months;
    std::optional<SeriesEnds> ends;
};

/// A list of events and what may be picked out of it: all of them, or one of the leagues with the most.
class TrendChoices {
public:
    explicit TrendChoices(BowledEvents events);

    /// Their names, all events first; none where there is but one league.
    [[nodiscard]] QStringList names() const;
    /// What a choice shows.
    [[nodiscard]] std::shared_ptr<const TrendSeries> at(int choice) const;

    /// A league with a mark of its own.
    struct Marked {
        int mark;
        QString name;
    };
    /// The marks that a choice shows, with what they stand for.
    [[nodiscard]] std::vector<Marked> marked(int choice) const;

private:
    [[nodiscard]] std::shared_ptr<const TrendSeries> leagueOf(int choice) const;

    Leagues leagues_;
    std::shared_ptr<const TrendSeries> all_;
    mutable int shown_ = 0;
    mutable std::shared_ptr<const TrendSeries> series_;  // of the choice that is shown
};

}  // namespace tallybrook
