#include "bowling/PinfallLine.h"

#include "bowling/Cell_Count.h"
#include "bowling/Pins.h"
#include "runtime/TextForms.h"

namespace tallybrook {

namespace {

/// The pins down of a ball at ten.
std::string fallenOfTen(const std::string& pins) {
    std::string count;
    Cell_Count(pins, count, "First");
    return count;
}

}  // namespace

void PinfallLine::addFirst(Int16 frame, const std::string& first) {
    const std::string mark = firstMark(first);
    cells_[frame.value()] = mark;
}

void PinfallLine::addSecond(Int16 frame, const std::string& first, const std::string& second) {
    addMark(frame, secondMark(second, frame == kFrames && isStrike(first)));
}

void PinfallLine::addFill(Int16 frame, const std::string& second, const std::string& fill) {
    if (frame == kFrames)
        addMark(frame, fillMark(fill, isMark(second)));
}

void PinfallLine::addMark(Int16 frame, const std::string& mark) {
    if (!mark.empty())
        cells_[frame.value()] += mark;
}

// A strike leaves the count of the pins standing as the frame before has left it.
std::string PinfallLine::firstMark(const std::string& pins) {
    if (isStrike(pins))
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
    standing_ = kPins - toInt16(leadingNumber(fallen));
}

}  // namespace tallybrook
