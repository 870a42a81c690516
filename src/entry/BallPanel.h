#pragma once

#include "bowling/PinString.h"
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
    OptionGroup answers;
    OptionButton optYes;
    OptionButton optNo;
    Label lblPins;
    ControlArray<CheckBox> pins;
    Button cmdDone;

    /// Both answers off, no pin ticked, everything disabled but, if told, the answers.
    void reset(bool answersEnabled);
    /// Offers the answers, none of them given.
    void offerAnswers();
    void setAnswersEnabled(bool enabled);
    void setPinsEnabled(bool enabled);
    /// The pins that are ticked.
    [[nodiscard]] PinFlags standing() const;
    /// Enables the pins that `left` has flagged, and no others beyond those enabled already.
    void enablePins(PinFlags left);
    /// Ticks the pins flagged, and clears their flags.
    void tickPins(PinFlags& flagged);

    [[nodiscard]] Layout layout();
};

}  // namespace tallybrook
