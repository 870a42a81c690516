#include "sample/Bowler.h"

#include "bowling/Pins.h"

#include <algorithm>
#include <numeric>

namespace tallybrook::sample {

namespace {

/// Pins that a first ball leaves: how often, and how often in a thousand they are spared by a good bowler.
struct Leave {
    Pins pins;
    int weight;
    int spared;
};

constexpr Leave kLeaves[] = {
    // Single pins.
    {{10}, 240, 820},
    {{7}, 95, 850},
    {{9}, 28, 900},
    {{8}, 26, 900},
    {{6}, 32, 920},
    {{4}, 38, 920},
    {{5}, 12, 950},
    {{3}, 8, 930},
    {{2}, 12, 930},
    {{1}, 2, 960},
    // Pins that one ball can take.
    {{6, 10}, 75, 700},
    {{4, 7}, 40, 730},
    {{3, 6, 10}, 55, 600},
    {{2, 4, 5}, 22, 560},
    {{2, 4, 7}, 14, 620},
    {{3, 5, 6}, 12, 560},
    {{2, 8}, 16, 600},
    {{3, 9}, 8, 600},
    {{2, 5}, 12, 640},
    {{3, 5}, 6, 640},
    {{3, 6}, 16, 760},
    {{2, 4}, 14, 780},
    {{2, 4, 5, 8}, 24, 420},
    {{3, 5, 6, 9}, 9, 420},
    {{1, 2, 4}, 14, 620},
    {{1, 3, 6}, 10, 600},
    {{1, 2, 4, 7}, 18, 480},
    {{1, 3, 6, 10}, 26, 470},
    {{1, 2, 8}, 9, 540},
    {{1, 3, 9}, 5, 540},
    {{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, 3, 160},
    // Washouts.
    {{1, 2, 10}, 14, 360},
    {{1, 2, 4, 10}, 16, 300},
    {{1, 3, 7}, 6, 320},
    // Splits.
    {{3, 10}, 48, 420},
    {{2, 7}, 16, 420},
    {{5, 7}, 14, 190},
    {{5, 10}, 12, 180},
    {{4, 5}, 4, 200},
    {{5, 6}, 5, 200},
    {{4, 9}, 10, 90},
    {{6, 8}, 5, 90},
    {{4, 10}, 8, 60},
    {{6, 7}, 8, 60},
    {{6, 7, 10}, 26, 70},
    {{4, 7, 10}, 24, 70},
    {{4, 6}, 4, 15},
    {{8, 10}, 6, 25},
    {{7, 9}, 6, 25},
    {{7, 10}, 12, 7},
    {{4, 6, 7, 10}, 12, 5},
    {{4, 6, 7, 9, 10}, 6, 4},
};

constexpr int kAllWeights = std::accumulate(std::begin(kLeaves), std::end(kLeaves), 0,
                                            [](int sum, const Leave& leave) { return sum + leave.weight; });

/// Of this many strikes in a thousand racks the table's spares are told.
constexpr int kGoodBowler = 340;
constexpr int kSurestSpare = 985;

std::string digit(int pins) {
    return std::to_string(pins);
}

/// The bowler in front of one rack after the other.
class Lane {
public:
    Lane(Dice& dice, int strikes) : dice_(dice), strikes_(strikes) {}

    /// Any frame but the tenth.
    Bowled frame() {
        const Ball first = firstBall();
        if (first.isStrike())
            return {.first = first.result, .second = {}, .fill = {}, .lineScore = first.mark};
        const Ball second = secondBall(*first.leave);
        return {.first = first.result,
                .second = second.result,
                .fill = {},
                .lineScore = first.mark + second.mark};
    }

    Bowled tenthFrame() {
        const Ball first = firstBall();
        const Ball second = first.isStrike() ? firstBall() : secondBall(*first.leave);
        Bowled bowled{.first = first.result,
                      .second = second.result,
                      .fill = {},
                      .lineScore = first.mark + second.mark};
        if (!first.isStrike() && !second.isSpare())
            return bowled;
        const bool isFreshRack = second.isStrike() || second.isSpare();
        const Ball fill = isFreshRack ? firstBall() : secondBall(*second.leave);
        bowled.fill = fill.result;
        bowled.lineScore += fill.mark;
        return bowled;
    }

private:
    struct Ball {
        std::string result;
        std::string mark;
        const Leave* leave = nullptr;  // of a first ball that is no strike

        [[nodiscard]] bool isStrike() const { return tallybrook::isStrike(result); }
        [[nodiscard]] bool isSpare() const { return tallybrook::isSpare(result); }
    };

    Ball firstBall() {
        if (dice_.happens(strikes_))
            return {.result = "X", .mark = "X"};
        const Leave& leave = anyLeave();
        return {.result = pinString(leave.pins), .mark = digit(kPins - leave.pins.count()), .leave = &leave};
    }

    Ball secondBall(const Leave& leave) {
        const int spared = leave.spared * (kGoodBowler + strikes_) / (2 * kGoodBowler);
        if (dice_.happens(std::min(spared, kSurestSpare)))
            return {.result = "/", .mark = "/"};
        const Pins left = missed(leave.pins);
        return {.result = pinString(left), .mark = digit(leave.pins.count() - left.count())};
    }

    const Leave& anyLeave() {
        int left = dice_.between(1, kAllWeights);
        return *std::ranges::find_if(kLeaves, [&left](const Leave& leave) {
            left -= leave.weight;
            return left <= 0;
        });
    }

    /// The pins that stay of those that a ball did not spare: at least one.
    Pins missed(Pins pins) {
        Pins left;
        int last = 0;
        for (int pin = 1; pin <= kPins; ++pin) {
            if (!pins.has(pin))
                continue;
            last = pin;
            if (dice_.happens(500))
                left.add(pin);
        }
        if (left.isEmpty())
            left.add(last);
        return left;
    }

    Dice& dice_;
    int strikes_;
};

}  // namespace

BowledGame bowlGame(Dice& dice, int strikes) {
    Lane lane(dice, strikes);
    BowledGame game;
    for (int frame = 1; frame < kFrames; ++frame)
        game[static_cast<std::size_t>(frame - 1)] = lane.frame();
    game.back() = lane.tenthFrame();
    return game;
}

int scoreOf(const BowledGame& game) {
    Cells cells;
    std::ranges::transform(game, cells.begin(), &Bowled::lineScore);
    return runningScores(cells).back().value();
}

}  // namespace tallybrook::sample
