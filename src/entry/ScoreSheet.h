#pragma once

#include "bowling/RunningScores.h"
#include "controls/Screen.h"

#include <functional>
#include <string>

namespace tallybrook {

/// The score sheet of the frame screen: for each frame its number, its cell and its running score, and the
/// total.
class ScoreSheet {
public:
    explicit ScoreSheet(Screen& screen);

    GroupBox fraLineScore;
    ControlArray<Label> lblFraNum;
    ControlArray<TextBox> txtCount;
    ControlArray<TextBox> txtScore;
    TextBox txtTotScore;

    /// Somebody has typed into the cell of a frame, or it was filled.
    std::function<void(int frame)> onCell;

    /// What stands in the cells.
    [[nodiscard]] const Cells& cells() const { return cells_; }
    [[nodiscard]] static bool has(Int16 frame) { return frame >= 1 && frame <= kFrames; }
    /// What stands in the cell of a frame; error 340 for one that is not on the sheet.
    [[nodiscard]] const std::string& cell(Int16 frame) const;

    void clear();
    /// Marks the number of the frame that is being entered, as a text.
    void markFrame(const std::string& number);
    void showScores(const std::array<Int16, kFrames>& scores);
    void clearScores();

    [[nodiscard]] Layout layout();

private:
    Cells cells_;
};

}  // namespace tallybrook
