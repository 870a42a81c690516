// All that can be done on the three panels of a frame, in every order, beside a second account of it: each
// control by itself, and what a click changes on the others.

#include "Everything.h"
#include "PinsOfBits.h"
#include "bowling/FrameEntry.h"
#include "bowling/Marks.h"

#include <algorithm>
#include <array>
#include <deque>
#include <string>
#include <unordered_set>
#include <vector>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

using Reply = FrameEntry::Reply;

struct PanelControls {
    bool yes = false;
    bool no = false;
    bool areOptionsOn = false;
    bool isDoneOn = false;
    Pins boxesOn = {};
    Pins ticked = {};
    std::string result = {};

    void offerOptions() { yes = no = false, areOptionsOn = true; }
    [[nodiscard]] Reply reply() const { return yes ? Reply::Yes : no ? Reply::No : Reply::None; }
};

std::string names(Pins pins) {
    std::string text;
    for (int pin = 1; pin <= 10; ++pin) {
        if (pins.has(pin))
            text += (text.empty() ? "" : "-") + std::to_string(pin);
    }
    return text;
}

/// The panels control by control.
class Panels {
public:
    explicit Panels(bool isTenth) : isTenth_(isTenth) { first.areOptionsOn = true; }

    void clickYes(Ball ball) {
        PanelControls& panel = of(ball);
        panel.yes = true, panel.no = false;
        const bool isStrike = ball == Ball::First ||
                              (ball == Ball::Second && isTenth_ && first.result == "X") ||
                              (ball == Ball::Fill && (second.result == "X" || second.result == "/"));
        panel.result = isStrike ? "X" : "/";
        cell = (ball == Ball::First && !isTenth_ ? "" : cell) + panel.result;
        if (ball == Ball::First)
            asksForStrike = isTenth_;
        if (isTenth_ && ball == Ball::First)
            second.offerOptions();
        if (isTenth_ && ball == Ball::Second)
            fill.offerOptions();
    }
    void clickNo(Ball ball) {
        PanelControls& panel = of(ball);
        panel.no = true, panel.yes = false;
        panel.isDoneOn = true;
        if (ball == Ball::First) {
            first.boxesOn = Pins::all();
            second.offerOptions();
            asksForStrike = false;
        } else if (ball == Ball::Second && isTenth_ && first.result == "X") {
            second.boxesOn = Pins::all();
            fill.offerOptions();
        } else if (ball == Ball::Fill && (second.result == "X" || second.result == "/")) {
            fill.boxesOn = Pins::all();
        }
    }
    void clickDone(Ball ball) {
        PanelControls& panel = of(ball);
        const std::string before = ball == Ball::First ? ""
                                   : ball == Ball::Second
                                       ? cell
                                       : cell.substr(std::min<std::size_t>(1, cell.size()));
        const bool isCounted = !before.empty() && before[0] >= '0' && before[0] <= '9';
        const int down = 10 - (isCounted ? before[0] - '0' : 0) - panel.ticked.count();
        cell = (ball == Ball::First ? "" : cell) + std::to_string(down);
        panel.result = names(panel.ticked);
        panel.isDoneOn = false;
        if (ball == Ball::First) {
            asksForStrike = false;
            second.offerOptions();
            second.boxesOn |= panel.ticked;
        } else if (ball == Ball::Second && isTenth_) {
            fill.boxesOn |= panel.ticked;
        }
    }
    void comeToFirst() { first.no = second.no = false; }
    void lock() {
        for (const Ball ball : kBalls)
            of(ball).areOptionsOn = false, of(ball).boxesOn = {};
    }

    PanelControls& of(Ball ball) {
        return ball == Ball::First ? first : ball == Ball::Second ? second : fill;
    }

    PanelControls first, second, fill;
    std::string cell;
    bool asksForStrike = false;

private:
    bool isTenth_;
};

/// A frame and its second account.
struct Both {
    explicit Both(int frame) : panels(frame == kFrames) {
        entry.begin(frame, "");
        entry.reset();
    }

    /// All that what follows depends on: of the cell the first two marks alone.
    [[nodiscard]] std::string state() {
        std::string state = panels.cell.substr(0, 2) + (panels.asksForStrike ? "!" : "?");
        for (const Ball ball : kBalls) {
            const PanelControls& panel = panels.of(ball);
            for (const bool is : {panel.yes, panel.no, panel.areOptionsOn, panel.isDoneOn})
                state += is ? '1' : '0';
            for (int pin = 1; pin <= kPins; ++pin)
                state += panel.ticked.has(pin) ? '+' : panel.boxesOn.has(pin) ? '-' : '.';
            state += panel.result + "|";
        }
        return state;
    }

    FrameEntry entry;
    Panels panels;
};

void expectSame(Both& both) {
    for (const Ball ball : kBalls) {
        const FrameEntry::Panel& panel = both.entry.panel(ball);
        const PanelControls& controls = both.panels.of(ball);
        ASSERT_EQ(panel.reply, controls.reply());
        ASSERT_EQ(panel.offersAnswers(), controls.areOptionsOn);
        ASSERT_EQ(panel.offersDone(), controls.isDoneOn);
        ASSERT_EQ(panel.offered, controls.boxesOn);
        ASSERT_EQ(panel.standing, controls.ticked);
        ASSERT_EQ(panel.result, controls.result);
    }
    ASSERT_EQ(both.entry.cell(), both.panels.cell);
    ASSERT_EQ(both.entry.asksForSecondStrike(), both.panels.asksForStrike);
}

/// The pins that each ball leaves.
using Leaves = std::array<Pins, 3>;

/// Ticks those of the pins that are offered, or takes the ticks away.
void tick(Both& both, Ball ball, Pins pins, bool isTicked) {
    PanelControls& controls = both.panels.of(ball);
    for (int pin = 1; pin <= kPins; ++pin) {
        if (pins.has(pin) && controls.boxesOn.has(pin)) {
            both.entry.tick(ball, pin, isTicked);
            isTicked ? controls.ticked.add(pin) : controls.ticked.remove(pin);
        }
    }
}

/// What comes of each thing that can be done where a frame stands.
std::vector<Both> next(Both& now, const Leaves& leaves) {
    std::vector<Both> all;
    const auto then = [&](const auto& act) { act(all.emplace_back(now)); };
    for (const Ball ball : kBalls) {
        const PanelControls& controls = now.panels.of(ball);
        if (controls.areOptionsOn && !controls.yes)
            then([&](Both& both) { both.entry.answer(ball, Reply::Yes), both.panels.clickYes(ball); });
        if (controls.areOptionsOn && !controls.no)
            then([&](Both& both) { both.entry.answer(ball, Reply::No), both.panels.clickNo(ball); });
        if (controls.isDoneOn)
            then([&](Both& both) { both.entry.done(ball), both.panels.clickDone(ball); });
        const Pins leave = leaves.at(static_cast<std::size_t>(ball));
        for (const bool isTicked : {true, false})
            then([&](Both& both) { tick(both, ball, leave, isTicked); });
    }
    then([](Both& both) { both.entry.takeBackNo(), both.panels.comeToFirst(); });
    return all;
}

/// Goes from these frames, all early or all tenth ones, through what can come of them, the shortest ways
/// first, until there is nothing new or so many states have been seen. Gives their count.
std::size_t walkAll(std::deque<Both> open, const Leaves& leaves, std::size_t most) {
    std::unordered_set<std::string> seen;
    for (; !open.empty() && seen.size() < most && !testing::Test::HasFatalFailure(); open.pop_front()) {
        for (Both& both : next(open.front(), leaves)) {
            expectSame(both);  // a state that has been seen may come with another cell
            if (seen.insert(both.state()).second)
                open.push_back(std::move(both));
        }
    }
    return seen.size();
}

/// A frame as it is shown again with the balls that were stored.
Both storedFrame(int frame, const std::array<std::string, 3>& results) {
    Both both(frame);
    for (const Ball ball : kBalls) {
        both.entry.setResult(ball, results.at(static_cast<std::size_t>(ball)));
        both.panels.of(ball).result = results.at(static_cast<std::size_t>(ball));
    }
    for (const Ball ball : kBalls) {
        const std::string result = both.entry.result(ball);
        if (result.empty())
            continue;
        both.entry.answer(ball, isMark(result) ? Reply::Yes : Reply::No);
        if (isMark(result)) {
            both.panels.clickYes(ball);
        } else {
            both.panels.clickNo(ball);
            both.entry.tickStored(ball);
            addNamedPins(result, both.panels.of(ball).ticked);
        }
    }
    both.entry.lock(), both.panels.lock();
    return both;
}

constexpr std::size_t kAll = 1'000'000;  // more than there are

TEST(EveryOrder, OfAnswersPinsAndDoneComesToWhatEachClickDoes) {
    const Leaves leaves{Pins{3, 6, 10}, {}, {}};
    EXPECT_EQ(walkAll({Both(1)}, leaves, kAll), 984U);
    EXPECT_GE(walkAll({Both(10)}, leaves, isLongRun() ? kAll : 12000), 12000U);
}

TEST(EveryOrder, AfterEveryLeaveComesToWhatEachClickDoes) {
    for (unsigned bits = 0; bits < 1024; bits += isLongRun() ? 1U : 293U) {
        const Leaves leaves{pinsOfBits(bits), pinsOfBits(bits & (bits >> 1U)),
                            pinsOfBits(bits & (bits >> 2U))};
        EXPECT_GT(walkAll({Both(1)}, leaves, kAll), 100U);
        EXPECT_GE(walkAll({Both(10)}, leaves, 1500), 1500U);
    }
}

TEST(EveryOrder, OfWhatCanBeDoneOnAStoredFrameComesToTheSame) {
    for (const int frame : {1, 10}) {
        std::deque<Both> open;
        for (const std::string first : {"", "X", "3-6-10"}) {
            for (const std::string second : {"", "X", "/", "10"}) {
                for (const std::string fill : {"", "X", "/", "6"})
                    open.push_back(storedFrame(frame, {first, second, fill}));
            }
        }
        EXPECT_GT(walkAll(std::move(open), {Pins{3, 6, 10}, Pins{10}, Pins{6}}, kAll), 400U);
    }
}

}  // namespace

}  // namespace tallybrook::test
