#pragma once

#include "bowling/Marks.h"
#include "runtime/BoundedList.h"
#include "runtime/Integer.h"

#include <string>
#include <vector>

namespace tallybrook {

/// The line score of a game, made of the pin strings of its frames: one cell for each of ten frames, ball by
/// ball. A frame is told by its place in the game, from 1, whatever its own number; error 9 for an eleventh.
class PinfallLine {
public:
    /// Begins the cell of a frame with its first ball.
    void addFirst(Int16 frame, const std::string& first);
    /// Adds the second ball to the cell; an empty one adds nothing.
    void addSecond(Int16 frame, const std::string& first, const std::string& second);
    /// Adds the fill ball to the cell of the tenth frame; in any other it counts for nothing.
    void addFill(Int16 frame, const std::string& second, const std::string& fill);

    /// The cell of a frame; error 9 outside 1 to 10.
    [[nodiscard]] const std::string& cell(int frame) const { return cells_[frame]; }

private:
    void addMark(Int16 frame, const std::string& mark);
    std::string firstMark(const std::string& pins);
    std::string secondMark(const std::string& pins, bool isNewRack);
    [[nodiscard]] std::string fillMark(const std::string& pins, bool isNewRack) const;
    [[nodiscard]] std::string fallenOfRest(const std::string& pins) const;
    void leaveAfter(const std::string& fallen);

    BoundedList<std::string> cells_{std::vector<std::string>(kFrames), 1};
    Int16 standing_;  // after the last ball that was counted, in whatever frame
};

}  // namespace tallybrook
