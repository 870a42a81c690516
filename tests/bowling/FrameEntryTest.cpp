// The states of one frame, walked answer by answer. A state is written in one line:
//
//     first panel | second panel | fill panel | second question | pin strings | cell
//
// and a panel as "answers, pins, Done": the answers off, or on with the one that is given; the pins offered
// (a "+" behind a ticked one); whether Done is offered.

#include "PinsOfBits.h"
#include "bowling/FrameCheck.h"
#include "bowling/FrameEntry.h"
#include "bowling/Marks.h"
#include "runtime/RunTimeError.h"

#include <array>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

using Reply = FrameEntry::Reply;

std::string pinsOf(const FrameEntry::Panel& panel) {
    std::string pins;
    for (int pin = 1; pin <= kPins; ++pin) {
        if (panel.offered.has(pin))
            pins += (pins.empty() ? "" : " ") + std::to_string(pin) + (panel.standing.has(pin) ? "+" : "");
    }
    if (pins.empty())
        return "off";
    return pins == "1 2 3 4 5 6 7 8 9 10" ? "all" : pins;
}

std::string stateOf(const FrameEntry::Panel& panel) {
    const std::array<const char*, 3> replies{"", " yes", " no"};
    return std::string(panel.offersAnswers() ? "on" : "off") +
           replies.at(static_cast<std::size_t>(panel.reply)) + ", " + pinsOf(panel) + ", " +
           (panel.offersDone() ? "on" : "off");
}

std::string stateOf(const FrameEntry& entry) {
    std::string state;
    for (const Ball ball : kBalls)
        state += stateOf(entry.panel(ball)) + " | ";
    state += entry.asksForSecondStrike() ? "Strike?" : "Spare?";
    state += " |";
    for (const Ball ball : kBalls)
        state += " " + (entry.result(ball).empty() ? "." : entry.result(ball));
    return state + " | " + entry.cell();
}

/// What a bowler does: "1Y", "1N" and "1D" are Yes, No and Done for the first ball, "1:3-6" ticks pins.
void act(FrameEntry& entry, const std::string& action) {
    const Ball ball = kBalls.at(static_cast<std::size_t>(action.at(0) - '1'));
    switch (action.at(1)) {
        case 'Y':
            EXPECT_TRUE(entry.answer(ball, Reply::Yes));
            return;
        case 'N':
            EXPECT_TRUE(entry.answer(ball, Reply::No));
            return;
        case 'D':
            return entry.done(ball);
        default:
            Pins pins;
            addNamedPins(action.substr(2), pins);
            for (int pin = 1; pin <= kPins; ++pin) {
                if (pins.has(pin))
                    entry.tick(ball, pin, true);
            }
    }
}

struct Step {
    std::vector<std::string> actions;
    std::string state;
};

void walk(int frame, const std::vector<Step>& steps) {
    FrameEntry entry;
    entry.begin(frame, "");
    entry.reset();
    for (const Step& step : steps) {
        for (const std::string& action : step.actions)
            act(entry, action);
        EXPECT_EQ(stateOf(entry), step.state);
    }
}

const std::string kOff = "off, off, off | ";
const std::string kStrike = "on yes, off, off | ";
const std::string kSeven = "on no, 1 2 3+ 4 5 6+ 7 8 9 10+, off | ";
const std::vector<std::string> kLeave3610{"1N", "1:3-6-10", "1D"};

TEST(FrameEntry, AsksForTheFirstBallAlone) {
    walk(1, {{{}, "on, off, off | " + kOff + kOff + "Spare? | . . . | "}});
    walk(10, {{{}, "on, off, off | " + kOff + kOff + "Spare? | . . . | "}});
}

TEST(FrameEntry, StrikeEndsAnEarlyFrame) {
    walk(1, {{{"1Y"}, kStrike + kOff + kOff + "Spare? | X . . | X"}});
}

TEST(FrameEntry, StrikeOfAnEarlyFrameAsksForTheSpareAgain) {
    FrameEntry entry;
    entry.begin(10, "");
    entry.reset();
    act(entry, "1Y");
    EXPECT_EQ(stateOf(entry), kStrike + "on, off, off | " + kOff + "Strike? | X . . | X");
    entry.begin(9, "");
    entry.clearResults();
    entry.reset();
    act(entry, "1Y");
    EXPECT_EQ(stateOf(entry), kStrike + kOff + kOff + "Spare? | X . . | X");
}

TEST(FrameEntry, OpenFrame) {
    walk(1, {{{"1N"}, "on no, all, on | on, off, off | " + kOff + "Spare? | . . . | "},
             {{"1:3-6-10", "1D"}, kSeven + "on, 3 6 10, off | " + kOff + "Spare? | 3-6-10 . . | 7"},
             {{"2N"}, kSeven + "on no, 3 6 10, on | " + kOff + "Spare? | 3-6-10 . . | 7"},
             {{"2:10", "2D"}, kSeven + "on no, 3 6 10+, off | " + kOff + "Spare? | 3-6-10 10 . | 72"}});
}

TEST(FrameEntry, SpareEndsAnEarlyFrame) {
    walk(9, {{kLeave3610, kSeven + "on, 3 6 10, off | " + kOff + "Spare? | 3-6-10 . . | 7"},
             {{"2Y"}, kSeven + "on yes, 3 6 10, off | " + kOff + "Spare? | 3-6-10 / . | 7/"}});
}

TEST(FrameEntry, YesAfterNoLeavesThePinsOffered) {
    walk(1, {{{"1N", "1Y"}, "on yes, all, on | on, off, off | " + kOff + "Spare? | X . . | X"},
             {{"1:7", "1D"},
              "on yes, 1 2 3 4 5 6 7+ 8 9 10, off | on, 7, off | " + kOff + "Spare? | 7 . . | 9"}});
}

TEST(FrameEntry, DoneWithoutAPinIsTenDown) {
    walk(1, {{{"1N", "1D"}, "on no, all, off | on, off, off | " + kOff + "Spare? | . . . | 10"}});
}

TEST(FrameEntry, TenthFrameStrikes) {
    walk(10, {{{"1Y"}, kStrike + "on, off, off | " + kOff + "Strike? | X . . | X"},
              {{"2Y"}, kStrike + "on yes, off, off | on, off, off | Strike? | X X . | XX"},
              {{"3Y"}, kStrike + "on yes, off, off | on yes, off, off | Strike? | X X X | XXX"}});
    walk(10,
         {{{"1Y", "2Y", "3N"}, kStrike + "on yes, off, off | on no, all, on | Strike? | X X . | XX"},
          {{"3:9-10", "3D"},
           kStrike + "on yes, off, off | on no, 1 2 3 4 5 6 7 8 9+ 10+, off | Strike? | X X 9-10 | XX8"}});
}

TEST(FrameEntry, TenthFrameStrikeThenPins) {
    const std::string second = kStrike + "on no, 1 2 3+ 4 5 6+ 7 8 9 10+, off | ";
    walk(10, {{{"1Y", "2N"}, kStrike + "on no, all, on | on, off, off | Strike? | X . . | X"},
              {{"2:3-6-10", "2D"}, second + "on, 3 6 10, off | Strike? | X 3-6-10 . | X7"},
              {{"3Y"}, second + "on yes, 3 6 10, off | Strike? | X 3-6-10 / | X7/"}});
    walk(10,
         {{{"1Y", "2N", "2:3-6-10", "2D", "3N"}, second + "on no, 3 6 10, on | Strike? | X 3-6-10 . | X7"},
          {{"3:10", "3D"}, second + "on no, 3 6 10+, off | Strike? | X 3-6-10 10 | X72"}});
}

TEST(FrameEntry, TenthFrameSpareThenFill) {
    walk(10, {{kLeave3610, kSeven + "on, 3 6 10, off | " + kOff + "Spare? | 3-6-10 . . | 7"},
              {{"2Y"}, kSeven + "on yes, 3 6 10, off | on, off, off | Spare? | 3-6-10 / . | 7/"},
              {{"3Y"}, kSeven + "on yes, 3 6 10, off | on yes, off, off | Spare? | 3-6-10 / X | 7/X"},
              {{"3N"}, kSeven + "on yes, 3 6 10, off | on no, all, on | Spare? | 3-6-10 / X | 7/X"}});
}

TEST(FrameEntry, TenthFrameOpenHasNoThirdBall) {
    walk(10, {{{"1N", "1:3-6-10", "1D", "2N"},
               kSeven + "on no, 3 6 10, on | " + kOff + "Spare? | 3-6-10 . . | 7"},
              {{"2:10", "2D"}, kSeven + "on no, 3 6 10+, off | off, 10, off | Spare? | 3-6-10 10 . | 72"}});
}

TEST(FrameEntry, StrikeAnswerOfTheTenthFrameAppends) {
    walk(10, {{{"1Y", "1N", "1Y"}, "on yes, all, on | on, off, off | " + kOff + "Strike? | X . . | XX"}});
}

TEST(FrameEntry, TakesNoAnswerTwice) {
    FrameEntry entry;
    entry.begin(10, "");
    entry.reset();
    EXPECT_TRUE(entry.answer(Ball::First, Reply::Yes));
    EXPECT_FALSE(entry.answer(Ball::First, Reply::Yes));
    EXPECT_EQ(entry.cell(), "X");
}

TEST(FrameEntry, ResetKeepsResultsAndCell) {
    FrameEntry entry;
    entry.begin(1, "");
    entry.reset();
    for (const char* action : {"1N", "1:7", "1D", "2Y"})
        act(entry, action);
    entry.reset();
    EXPECT_EQ(stateOf(entry), "on, off, off | " + kOff + kOff + "Spare? | 7 / . | 9/");
    entry.clearResults();
    entry.begin(2, "81");
    EXPECT_EQ(stateOf(entry), "on, off, off | " + kOff + kOff + "Spare? | . . . | 81");
    entry.close(Ball::First);
    EXPECT_EQ(stateOf(entry), kOff + kOff + kOff + "Spare? | . . . | 81");
}

TEST(FrameEntry, TakesNoBackWhenTheFirstQuestionIsOpen) {
    FrameEntry entry;
    entry.begin(1, "");
    entry.reset();
    for (const char* action : {"1N", "1:7", "1D", "2N"})
        act(entry, action);
    entry.takeBackNo();
    EXPECT_EQ(stateOf(entry), "on, 1 2 3 4 5 6 7+ 8 9 10, off | on, 7, on | " + kOff + "Spare? | 7 . . | 9");
    act(entry, "1Y");
    entry.takeBackNo();
    EXPECT_EQ(entry.panel(Ball::First).reply, Reply::Yes);
}

/// Shows a stored frame, as it is when nothing more is done on it.
std::string stored(int frame, const std::array<std::string, 3>& results) {
    FrameEntry entry;
    entry.begin(frame, "");
    entry.reset();
    for (const Ball ball : kBalls)
        entry.setResult(ball, results.at(static_cast<std::size_t>(ball)));
    for (const Ball ball : kBalls) {
        if (entry.storedReply(ball) != Reply::None)
            entry.answer(ball, entry.storedReply(ball));
        entry.tickStored(ball);
    }
    entry.lock();
    return stateOf(entry);
}

TEST(FrameEntry, ShowsStoredBallsWithDoneAlone) {
    EXPECT_EQ(stored(1, {"X", "", ""}), "off yes, off, off | " + kOff + kOff + "Spare? | X . . | X");
    EXPECT_EQ(stored(1, {"3-6-10", "/", ""}),
              "off no, off, on | off yes, off, off | " + kOff + "Spare? | 3-6-10 / . | /");
    EXPECT_EQ(stored(10, {"X", "7", "/"}),
              "off yes, off, off | off no, off, on | off yes, off, off | Strike? | X 7 / | X/");
    EXPECT_EQ(stored(1, {"", "", ""}), kOff + kOff + kOff + "Spare? | . . . | ");
}

TEST(FrameEntry, TicksTheStoredPinsBeforeABadOne) {
    FrameEntry entry;
    entry.begin(1, "");
    entry.setResult(Ball::First, "3-11-5");
    EXPECT_EQ(entry.storedReply(Ball::First), Reply::No);
    EXPECT_THROW(entry.tickStored(Ball::First), RunTimeError);
    EXPECT_EQ(entry.panel(Ball::First).standing, Pins{3});
}

/// Enters a ball as it was bowled: nothing of the pins left stands for Yes.
void enter(FrameEntry& entry, Ball ball, Pins left) {
    if (left.isEmpty()) {
        entry.answer(ball, Reply::Yes);
        return;
    }
    entry.answer(ball, Reply::No);
    for (int pin = 1; pin <= kPins; ++pin) {
        if (left.has(pin))
            entry.tick(ball, pin, true);
    }
    entry.done(ball);
}

std::string digit(int pins) {
    return std::to_string(pins);
}

TEST(FrameEntry, EveryLeaveOfEveryFrameIsWrittenAsOnASheet) {
    for (const int frame : {1, 9, 10}) {
        for (unsigned left = 0; left < 1024; ++left) {
            const Pins first = pinsOfBits(left);
            for (unsigned mask = left;; mask = (mask - 1) & left) {  // all that can be left of it
                const Pins second = pinsOfBits(mask);
                FrameEntry entry;
                entry.begin(frame, "");
                entry.reset();
                enter(entry, Ball::First, first);
                const bool isStrike = first.isEmpty();
                if (!isStrike)
                    enter(entry, Ball::Second, second);
                const std::string marks =
                    isStrike           ? "X"
                    : second.isEmpty() ? digit(10 - first.count()) + "/"
                                       : digit(10 - first.count()) + digit(first.count() - second.count());
                ASSERT_EQ(entry.cell(), marks)
                    << frame << " " << pinString(first) << " " << pinString(second);
                ASSERT_EQ(entry.result(Ball::First), isStrike ? "X" : pinString(first));
                ASSERT_EQ(entry.result(Ball::Second), isStrike           ? ""
                                                      : second.isEmpty() ? "/"
                                                                         : pinString(second));
                if (mask == 0)
                    break;
            }
        }
    }
}

TEST(FrameEntry, EveryTenthFrameAfterAMarkIsWrittenAsOnASheet) {
    for (unsigned left = 0; left < 1024; ++left) {
        const Pins rest = pinsOfBits(left);
        const std::string fill = rest.isEmpty() ? "X" : digit(10 - rest.count());
        for (const bool afterSpare : {false, true}) {
            FrameEntry entry;
            entry.begin(10, "");
            entry.reset();
            enter(entry, Ball::First, afterSpare ? Pins{7} : Pins{});
            enter(entry, Ball::Second, Pins{});
            enter(entry, Ball::Fill, rest);
            ASSERT_EQ(entry.cell(), (afterSpare ? "9/" : "XX") + fill) << pinString(rest);
            ASSERT_EQ(checkPinfall(10, entry.result(Ball::First), entry.result(Ball::Second),
                                   entry.result(Ball::Fill)),
                      Verdict::Good);
            ASSERT_EQ(checkLineScore(10, entry.cell()).verdict, Verdict::Good);
        }
    }
}

TEST(FrameEntry, EveryTenthFrameAfterAStrikeIsWrittenAsOnASheet) {
    for (unsigned left = 1; left < 1024; ++left) {
        const Pins second = pinsOfBits(left);
        for (unsigned mask = left;; mask = (mask - 1) & left) {  // all that can be left of it
            const Pins fill = pinsOfBits(mask);
            FrameEntry entry;
            entry.begin(10, "");
            entry.reset();
            enter(entry, Ball::First, {});
            enter(entry, Ball::Second, second);
            enter(entry, Ball::Fill, fill);
            const std::string last = fill.isEmpty() ? "/" : digit(second.count() - fill.count());
            ASSERT_EQ(entry.cell(), "X" + digit(10 - second.count()) + last)
                << pinString(second) << " " << pinString(fill);
            ASSERT_EQ(entry.result(Ball::Second), pinString(second));
            ASSERT_EQ(entry.result(Ball::Fill), fill.isEmpty() ? "/" : pinString(fill));
            if (mask == 0)
                break;
        }
    }
}

}  // namespace

}  // namespace tallybrook::test
