#pragma once

#include "runtime/Value.h"

namespace tallybrook {

/// What the pin string of a ball tells, as far as figures ask.
enum class BallResult { Strike, Spare, PinsLeft, Unknown };

/// The result of a stored pin string; unknown of a Null.
BallResult resultOf(const Value& pins);

/// The kinds of tenth frames that the reports tell apart.
enum class TenthFrame {
    ThreeStrikes,     // the line score "XXX"
    TwoStrikes,       // two strikes, then anything but a third
    StrikeThenSpare,  // a strike, then a spare
    SpareThenStrike,  // a spare, then a strike
    SpareThenOther,   // a spare, then anything but a strike
    Open,             // neither strike nor spare
    None,             // anything else, such as a strike and two balls that leave pins
};

/// The stored values of a tenth frame that tell its kind.
struct TenthFrameValues {
    Value first;
    Value second;
    Value fill;
    Value lineScore;
};

/// The first of the kinds, in their order, that fits the balls. A ball that is Null fits none.
TenthFrame tenthFrameOf(const TenthFrameValues& frame);

}  // namespace tallybrook
