#pragma once

#include "bowling/FrameEntry.h"
#include "entry/BallPanel.h"

#include <functional>

namespace tallybrook {

/// The three panels of the frame screen, which show how far the entry of a frame has come, and pass on what
/// is done on them.
class BallPanels {
public:
    explicit BallPanels(Screen& screen);

    /// The entry that the panels show; what is changed here is seen after show().
    FrameEntry entry;
    /// The cell is to be shown: it has changed by an answer or by Done.
    std::function<void()> onCell;
    /// A spare has ended the frame.
    std::function<void()> onSpare;

    void show();
    /// Shows the result stored for a ball by its answer and its pins. Error 9 for a pin outside 1 to 10, and
    /// what onCell raises.
    void showStored(Ball ball);

    [[nodiscard]] BallPanel& panel(Ball ball);
    [[nodiscard]] Layout layout();

private:
    void connect(Ball ball);
    void answered(Ball ball, FrameEntry::Reply reply);

    BallPanel first_;
    BallPanel second_;
    BallPanel fill_;
};

}  // namespace tallybrook
