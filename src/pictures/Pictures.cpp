#include "pictures/Pictures.h"

#include <algorithm>
#include <utility>

namespace tallybrook {

namespace {

/// The high and the low score among the games of an event; nothing where all are the same, or where a score
/// is not known.
class Ranks {
public:
    explicit Ranks(const std::vector<GameFigures>& games) {
        if (games.empty() || std::ranges::any_of(games, &QString::isEmpty, &GameFigures::score))
            return;
        const auto [low, high] = std::ranges::minmax(games, {}, scoreOf);
        low_ = scoreOf(low);
        high_ = scoreOf(high);
    }

    [[nodiscard]] Rank of(const GameFigures& game) const {
        if (low_ == high_)
            return Rank::Usual;
        const int score = scoreOf(game);
        return score == high_ ? Rank::High : score == low_ ? Rank::Low : Rank::Usual;
    }

private:
    static int scoreOf(const GameFigures& game) { return game.score.toInt(); }

    int low_ = 0;
    int high_ = 0;
};

}  // namespace

namespace {

bool isSettled(const RecordedGame& game) {
    return costsOf(game.cells).has_value();
}

/// Whether the report tells pins: without them there is no leave to speak of.
bool isKnown(const LeaveCost& cost) {
    return !cost.leave.empty();
}

void addCosts(const std::vector<GameFigures>& games, std::vector<ReportPicture>& pictures) {
    const std::vector<RecordedGame> recorded = recordedGames(games);
    if (std::ranges::any_of(recorded, isSettled))
        pictures.push_back(costsPicture(games));
    const std::vector<LeaveCost> leaves = leaveCosts(recorded);
    if (std::ranges::any_of(leaves, isKnown))
        pictures.push_back(leaveCostsPicture(leaves));
}

}  // namespace

std::vector<ReportPicture> picturesOf(ReportFigures figures) {
    std::vector<ReportPicture> pictures;
    const Ranks ranks(figures.games);
    for (const GameFigures& game : figures.games)
        pictures.push_back(sheetPicture(game, ranks.of(game)));
    addCosts(figures.games, pictures);
    if (!figures.events.bowled.empty()) {
        ReportPicture calendar = calendarPicture(figures.events.bowled);
        pictures.push_back(trendPicture(std::move(figures.events)));
        pictures.push_back(std::move(calendar));
    }
    if (figures.scores)
        pictures.push_back(scoresPicture(*figures.scores));
    if (!figures.series.empty())
        pictures.push_back(seriesPicture(figures.series));
    if (figures.strikes)
        pictures.push_back(strikesPicture(*figures.strikes));
    if (!figures.leaves.empty())
        pictures.push_back(leavesPicture(figures.leaves));
    return pictures;
}

}  // namespace tallybrook
