#include "bowling/TenthFrame.h"

#include "bowling/Marks.h"

namespace tallybrook {

namespace {

bool isNot(BallResult ball, BallResult unwanted) {
    return ball != BallResult::Unknown && ball != unwanted;
}

}  // namespace

BallResult resultOf(const Value& pins) {
    const auto* const text = std::get_if<std::string>(&pins);
    if (text == nullptr)
        return isNull(pins) ? BallResult::Unknown : BallResult::PinsLeft;
    if (isStrike(*text))
        return BallResult::Strike;
    return isSpare(*text) ? BallResult::Spare : BallResult::PinsLeft;
}

TenthFrame tenthFrameOf(const TenthFrameValues& frame) {
    using enum BallResult;
    if (isText(frame.lineScore, "XXX"))
        return TenthFrame::ThreeStrikes;
    const BallResult first = resultOf(frame.first);
    const BallResult second = resultOf(frame.second);
    const BallResult fill = resultOf(frame.fill);
    if (first == Strike && second == Strike && isNot(fill, Strike))
        return TenthFrame::TwoStrikes;
    if (first == Strike && isNot(second, Strike) && fill == Spare)
        return TenthFrame::StrikeThenSpare;
    if (isNot(first, Strike) && second == Spare && fill == Strike)
        return TenthFrame::SpareThenStrike;
    if (isNot(first, Strike) && second == Spare && isNot(fill, Strike))
        return TenthFrame::SpareThenOther;
    if (isNot(first, Strike) && second == PinsLeft && fill == PinsLeft)
        return TenthFrame::Open;
    return TenthFrame::None;
}

}  // namespace tallybrook
