#pragma once

#include "player/Stage.h"

#include <QObject>
#include <QTimer>
#include <optional>
#include <string>

namespace tallybrook {

/// Answers the box, input box or file dialog that comes up next, on its own buttons and boxes: it waits on a
/// timer, since the one who asks goes on only when the box is put away.
class BoxHands {
public:
    BoxHands();

    /// What the next box is to be answered with.
    void plan(Planned answer);
    /// What went wrong with the boxes since the last call; nothing where all have been answered as planned.
    std::optional<std::string> takeFailure() { return std::exchange(failure_, std::nullopt); }

private:
    void lookForBox();
    /// Gives the planned answer to the box; false if it is no box for such an answer.
    bool answer(QWidget& box);

    QTimer timer_;
    Planned planned_;
    std::optional<std::string> failure_;
};

}  // namespace tallybrook
