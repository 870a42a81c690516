#include "reports/TenthFrame.h"

#include "reports/ReportRun.h"

namespace tallybrook {

namespace {

enum class Ball { Strike, Spare, Other, Unknown };

Ball ballOf(const Value& pins) {
    if (isNull(pins))
        return Ball::Unknown;
    if (isText(pins, "X"))
        return Ball::Strike;
    return isText(pins, "/") ? Ball::Spare : Ball::Other;
}

bool is(Ball ball, Ball wanted) {
    return ball == wanted;
}
bool isNot(Ball ball, Ball unwanted) {
    return ball != Ball::Unknown && ball != unwanted;
}
bool isOther(Ball ball) {
    return ball == Ball::Other;
}

}  // namespace

FrameMarks marksOf(Recordset& frame) {
    return {.fldFirstBallRes = frame["fldFirstBallRes"],
            .fldSecondBallRes = frame["fldSecondBallRes"],
            .fldFillBallRes = frame["fldFillBallRes"],
            .fldLineScore = frame["fldLineScore"]};
}

TenthFrame tenthFrameOf(const FrameMarks& frame) {
    const Ball first = ballOf(frame.fldFirstBallRes);
    const Ball second = ballOf(frame.fldSecondBallRes);
    const Ball fill = ballOf(frame.fldFillBallRes);
    if (isText(frame.fldLineScore, "XXX"))
        return TenthFrame::ThreeStrikes;
    if (is(first, Ball::Strike) && is(second, Ball::Strike) && isNot(fill, Ball::Strike))
        return TenthFrame::TwoStrikes;
    if (is(first, Ball::Strike) && isNot(second, Ball::Strike) && is(fill, Ball::Spare))
        return TenthFrame::StrikeThenSpare;
    if (isNot(first, Ball::Strike) && is(second, Ball::Spare) && is(fill, Ball::Strike))
        return TenthFrame::SpareThenStrike;
    if (isNot(first, Ball::Strike) && is(second, Ball::Spare) && isNot(fill, Ball::Strike))
        return TenthFrame::SpareThenOther;
    if (isNot(first, Ball::Strike) && isOther(second) && isOther(fill))
        return TenthFrame::Open;
    return TenthFrame::None;
}

}  // namespace tallybrook
