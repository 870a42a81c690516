#include "reports/ScoreSummary.h"

#include "reports/CountedFigures.h"
#include "reports/ReportRun.h"

#include <algorithm>
#include <limits>

namespace tallybrook {

namespace {

constexpr int kNoScore = std::numeric_limits<int>::min();

}  // namespace

std::array<GameBin, 14> ScoreSummary::emptyBins() {
    return {{{"Games under 100: ", kNoScore, 99, {}},
             {"100 - 119: ", 100, 119, {}},
             {"120 - 139: ", 120, 139, {}},
             {"140 - 159: ", 140, 159, {}},
             {"160 - 179: ", 160, 179, {}},
             {"180 - 199: ", 180, 199, {}},
             {"200 - 219: ", 200, 219, {}},
             {"220 - 239: ", 220, 239, {}},
             {"240 - 259: ", 240, 259, {}},
             {"260 - 279: ", 260, 279, {}},
             {"280 - 297: ", kNoScore, kNoScore, {}},
             {"298 Games: ", 298, 298, {}},
             {"299 Games: ", 299, 299, {}},
             {"300 Games: ", 300, 300, {}}}};
}

void ScoreSummary::allow(Int32 games) {
    SeriesMatrix.assign(1, {});
    for (Int16 n = 1; n.value() <= games.value(); ++n)
        SeriesMatrix.push_back({.low = n * 300 + 1});
}

void ScoreSummary::countSeries(Int16 games, Int16 total, DateTime date) {
    if (games < 0 || static_cast<std::size_t>(games.value()) >= SeriesMatrix.size())
        throw RunTimeError(error::kSubscriptOutOfRange);
    SeriesRow& row = SeriesMatrix[static_cast<std::size_t>(games.value())];
    if (total > row.high) {
        row.high = total;
        row.highDate = date;
    }
    if (total < row.low) {
        row.low = total;
        row.lowDate = date;
    }
}

void ScoreSummary::countGame(Int16 score, DateTime date) {
    if (score > HighGame) {
        HighGame = score;
        HighGameDate = date;
    } else if (score < LowGame) {
        LowGame = score;
        LowGameDate = date;
    }
    const auto bin = std::ranges::find_if(GameBins, [&](const GameBin& one) {
        return score.value() >= one.first && score.value() <= one.last;
    });
    if (bin != GameBins.end())
        ++bin->games;
}

void Build_Sum_Matrix(ReportRun& run, const Counted<ScoreSummary>& scores) {
    run.procedure("Build_Sum_Matrix", [&] {
        run.requireRecordsets();
        scores.raiseFailure();
    });
}

}  // namespace tallybrook
