#include "viewer/ScoreSheet.h"

#include <algorithm>
#include <numeric>
#include <span>
#include <vector>

namespace tallybrook {

namespace {

constexpr int kPins = 10;

bool isMarked(const QString& marks) {
    return marks.contains('X') || marks.contains('/');
}

/// How many balls a finished frame has. `frame` counts from 0.
qsizetype ballsOfFrame(std::size_t frame, const QString& marks) {
    if (frame == kSheetFrames - 1)
        return isMarked(marks) ? 3 : 2;
    return marks.startsWith('X') ? 1 : 2;
}

/// What is left of a rack after each ball.
class Rack {
public:
    /// The pins that a ball knocked down; nothing where its mark does not fit.
    std::optional<int> roll(QChar mark) {
        const int pins = mark == 'X' ? kPins : mark == '/' ? standing_ : mark.unicode() - '0';
        const bool fits = mark == 'X' ? isFresh_ : mark == '/' ? !isFresh_ : pins >= 0 && pins < standing_;
        if (!fits)
            return std::nullopt;
        isFresh_ = !isFresh_ || pins == kPins;
        standing_ = isFresh_ ? kPins : standing_ - pins;
        return pins;
    }

private:
    bool isFresh_ = true;
    int standing_ = kPins;
};

/// The pins of each ball of a frame; nothing where a mark does not fit.
std::optional<std::vector<int>> ballsIn(const QString& marks) {
    Rack rack;
    std::vector<int> balls;
    for (const QChar mark : marks) {
        const std::optional<int> pins = rack.roll(mark);
        if (!pins)
            return std::nullopt;
        balls.push_back(*pins);
    }
    return balls;
}

bool hasFrameAfter(const SheetMarks& marks, std::size_t frame) {
    return std::any_of(marks.begin() + static_cast<std::ptrdiff_t>(frame) + 1, marks.end(),
                       [](const QString& later) { return !later.isEmpty(); });
}

/// All balls of a game in a row, and where each frame begins among them.
struct Balls {
    std::vector<int> pins;
    std::vector<std::size_t> begins;
};

Balls ballsOf(const SheetMarks& marks) {
    Balls all;
    for (std::size_t frame = 0; frame < kSheetFrames; ++frame) {
        const qsizetype wanted = ballsOfFrame(frame, marks[frame]);
        const std::optional<std::vector<int>> balls = ballsIn(marks[frame]);
        if (!balls || marks[frame].isEmpty() || marks[frame].size() > wanted)
            break;
        all.begins.push_back(all.pins.size());
        all.pins.insert(all.pins.end(), balls->begin(), balls->end());
        if (marks[frame].size() < wanted && !hasFrameAfter(marks, frame))
            break;
        all.pins.resize(all.begins.back() + static_cast<std::size_t>(wanted));
    }
    return all;
}

}  // namespace

SheetTotals totalsOf(const SheetMarks& marks) {
    const Balls balls = ballsOf(marks);
    SheetTotals totals;
    int total = 0;
    for (std::size_t frame = 0; frame < balls.begins.size(); ++frame) {
        const std::size_t counting = isMarked(marks[frame]) ? 3 : 2;
        if (balls.begins[frame] + counting > balls.pins.size())
            break;
        const auto counted = std::span(balls.pins).subspan(balls.begins[frame], counting);
        total = std::accumulate(counted.begin(), counted.end(), total);
        totals[frame] = total;
    }
    return totals;
}

}  // namespace tallybrook
