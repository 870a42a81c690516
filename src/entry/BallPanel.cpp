#include "entry/BallPanel.h"

#include <memory>

namespace tallybrook {

BallPanel::BallPanel(Screen& screen, const BallPanelTexts& texts)
    : frame(screen, "fra" + texts.ball + "Pinfall", texts.caption, texts.tip),
      question(frame, "lbl" + texts.ball, texts.question),
      optYes(frame, "opt" + texts.ball + "Yes", answers, "Yes", texts.yesTip),
      optNo(frame, "opt" + texts.ball + "No", answers, "No", texts.noTip),
      lblPins(frame, "lbl" + texts.ball + "Pins", "Pins Standing"),
      pins("chk" + texts.ball + "Pinfall", 1, kPins,
           [this](int pin, const std::string& name) {
               return std::make_unique<CheckBox>(frame, name, std::to_string(pin), CheckBoxLook::Pin);
           }),
      cmdDone(frame, "cmd" + texts.ball + "Done", "&Done",
              {.tip = "When you are done entering your pinfall, click this box"}) {
    lblPins.setTip("Check the boxes that correspond to the pins left on the first ball");
    reset(false);
}

void BallPanel::reset(bool answersEnabled) {
    for (OptionButton* answer : {&optYes, &optNo}) {
        answer->setValue(false);
        answer->setEnabled(answersEnabled);
    }
    cmdDone.setEnabled(false);
    for (const auto& pin : pins) {
        pin->setValue(false);
        pin->setEnabled(false);
    }
}

void BallPanel::offerAnswers() {
    for (OptionButton* answer : {&optYes, &optNo})
        answer->setValue(false);
    setAnswersEnabled(true);
}

void BallPanel::setAnswersEnabled(bool enabled) {
    optYes.setEnabled(enabled);
    optNo.setEnabled(enabled);
}

void BallPanel::setPinsEnabled(bool enabled) {
    for (const auto& pin : pins)
        pin->setEnabled(enabled);
}

PinFlags BallPanel::standing() const {
    PinFlags flags;
    for (int pin = 1; pin <= kPins; ++pin)
        flags(pin) = pins(pin).value();
    return flags;
}

void BallPanel::enablePins(PinFlags left) {
    for (int pin = 1; pin <= kPins; ++pin) {
        if (left(pin))
            pins(pin).setEnabled(true);
    }
}

void BallPanel::tickPins(PinFlags& flagged) {
    for (int pin = 1; pin <= kPins; ++pin) {
        if (flagged(pin))
            pins(pin).setValue(true);
        flagged(pin) = false;
    }
}

Layout BallPanel::layout() {
    const auto rack = [](std::vector<Layout> row) { return layout::row(std::move(row)).centred(); };
    return layout::group(frame, layout::column({layout::row({question, optYes, optNo, layout::space()}),
                                                lblPins, rack({pins(7), pins(8), pins(9), pins(10)}),
                                                rack({pins(4), pins(5), pins(6)}), rack({pins(2), pins(3)}),
                                                rack({pins(1)}), layout::row({layout::space(), cmdDone})}));
}

}  // namespace tallybrook
