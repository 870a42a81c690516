#include "bowling/CleanGame.h"

#include "bowling/RunningScores.h"

#include <numeric>

namespace tallybrook {

namespace {

constexpr std::size_t kTenth = kFrames - 1;

/// The marks on the last rack of a cell that leaves pins; the strikes before them are passed over.
std::string_view lastRack(std::size_t frame, std::string_view cell) {
    const bool isBehindStrike = frame == kTenth && cell.starts_with('X');
    return isBehindStrike ? cell.substr(1) : cell;
}

}  // namespace

bool isOpen(std::size_t frame, std::string_view cell) {
    const std::string_view rack = lastRack(frame, cell);
    return rack.size() == 2 && isCount(markOf(rack, 1)) && isCount(markOf(rack, 2));
}

std::string cleanCell(std::size_t frame, std::string_view cell) {
    if (!isOpen(frame, cell))
        return std::string(cell);
    std::string clean(cell);
    clean.back() = '/';
    if (frame == kTenth && cell.size() == 2)
        clean += '0';
    return clean;
}

int GameCosts::cleanScore() const {
    return std::accumulate(lost.begin(), lost.end(), score);
}

std::optional<GameCosts> costsOf(const Cells& cells) {
    const std::optional<int> score = settledScores(cells).back();
    if (!score)
        return std::nullopt;
    GameCosts costs{*score, {}};
    for (std::size_t frame = 0; frame < kFrames; ++frame) {
        Cells made = cells;
        made[frame] = cleanCell(frame, cells[frame]);
        costs.lost[frame] = runningScores(made).back().value() - *score;
    }
    return costs;
}

}  // namespace tallybrook
