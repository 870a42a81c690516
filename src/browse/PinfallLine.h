#pragma once

#include "browse/BoundedList.h"
#include "runtime/Integer.h"

#include <string>
#include <vector>

namespace tallybrook {

/// The pin strings of one frame.
struct FrameBalls {
    std::string first = {};
    std::string second = {};
    std::string fill = {};
};

/// The line score of a game, made of the pin strings of its frames: one cell for each of ten frames.
class PinfallLine {
public:
    static constexpr int kFrames = 10;

    /// Makes the cell of the frame that is the `frame`th of its game, from 1, whatever its own number. Error
    /// 9 for an eleventh.
    void add(Int16 frame, const FrameBalls& balls);

    /// The cell of a frame; error 9 outside 1 to 10.
    [[nodiscard]] const std::string& cell(int frame) const { return cells_[frame]; }

private:
    std::string firstMark(const std::string& pins);
    std::string secondMark(const std::string& pins, bool isNewRack);
    [[nodiscard]] std::string fillMark(const std::string& pins, bool isNewRack) const;
    [[nodiscard]] std::string fallenOfRest(const std::string& pins) const;
    void leaveAfter(const std::string& fallen);

    BoundedList<std::string> cells_{std::vector<std::string>(kFrames), 1};
    Int16 standing_;  // after the last ball that was counted, in whatever frame
};

}  // namespace tallybrook
