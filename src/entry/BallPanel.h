#pragma once

#include "bowling/FrameEntry.h"
#include "controls/Screen.h"

#include <string>

namespace tallybrook {

/// What one ball panel of the frame screen says.
struct BallPanelTexts {
    std::string ball;  // "First", "Second" or "Fill": the middle of the controls' names
    std::string caption;
    std::string question;
    std::string tip = {};
    std::string yesTip = {};
    std::string noTip = {};
};

/// One of the three panels on which a ball is entered: its question with two answers, the pins left standing,
/// and the Done button.
class BallPanel {
public:
    BallPanel(Screen& screen, const BallPanelTexts& texts);

    GroupBox frame;
    Label question;
    OptionGroup answers{question};
    OptionButton optYes;
    OptionButton optNo;
    Label lblPins;
    ControlArray<CheckBox> pins;
    Button cmdDone;

    /// Shows the answer given and the pins ticked, and enables what is offered.
    void open(const FrameEntry::Panel& state);
    /// Disables what is not offered.
    void close(const FrameEntry::Panel& state);
    /// Has the pins read aloud as they are: those of a ball that is not bowled are neither up nor down.
    void namePins(const FrameEntry::Panel& state);

    [[nodiscard]] Layout layout();
};

}  // namespace tallybrook
