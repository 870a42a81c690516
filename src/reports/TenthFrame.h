#pragma once

#include "runtime/Value.h"
#include "store/Recordset.h"

namespace tallybrook {

/// What the reports read of one tenth frame.
struct FrameMarks {
    Value fldFirstBallRes;
    Value fldSecondBallRes;
    Value fldFillBallRes;
    Value fldLineScore;
};

/// Those of the row.
FrameMarks marksOf(Recordset& frame);

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

/// The first of the kinds, in their order, that fits the balls. A ball that is Null fits none.
TenthFrame tenthFrameOf(const FrameMarks& frame);

}  // namespace tallybrook
