#include "browse/PinfallLine.h"

#include "browse/Cell_Count.h"
#include "runtime/TextForms.h"

namespace tallybrook {

namespace {

bool isMark(const std::string& ball) {
    return ball == "/" || ball == "X";
}

/// The pins down of a ball at ten.
std::string fallenOfTen(const std::string& pins) {
    std::string count;
    Cell_Count(pins, count, "First");
    return count;
}

}  // namespace

void PinfallLine::add(Int16 frame, const FrameBalls& balls) {
    const bool isTenth = frame == kFrames;
    std::string cell = firstMark(balls.first);
    cell += secondMark(balls.second, isTenth && balls.first == "X");
    if (isTenth)
        cell += fillMark(balls.fill, isMark(balls.second));
    cells_[frame.value()] = cell;
}

// A strike leaves the count of the pins standing as the frame before has left it.
std::string PinfallLine::firstMark(const std::string& pins) {
    if (pins == "X")
        return pins;
    std::string fallen = fallenOfTen(pins);
    leaveAfter(fallen);
    return fallen;
}

std::string PinfallLine::secondMark(const std::string& pins, bool isNewRack) {
    if (pins.empty() || isMark(pins))
        return pins;
    if (!isNewRack)
        return fallenOfRest(pins);
    std::string fallen = fallenOfTen(pins);
    leaveAfter(fallen);
    return fallen;
}

std::string PinfallLine::fillMark(const std::string& pins, bool isNewRack) const {
    if (pins.empty() || isMark(pins))
        return pins;
    return isNewRack ? fallenOfTen(pins) : fallenOfRest(pins);
}

/// The pins down of a ball at those that were standing.
std::string PinfallLine::fallenOfRest(const std::string& pins) const {
    std::string left;
    Cell_Count(pins, left, "Second");
    return text(standing_ - toInt16(leadingNumber(left)));
}

void PinfallLine::leaveAfter(const std::string& fallen) {
    standing_ = 10 - toInt16(leadingNumber(fallen));
}

}  // namespace tallybrook
