#include "entry/BallPanel.h"

#include <memory>
#include <utility>
#include <vector>

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
    open({});
    close({});
}

void BallPanel::open(const FrameEntry::Panel& state) {
    optYes.setValue(state.reply == FrameEntry::Reply::Yes);
    optNo.setValue(state.reply == FrameEntry::Reply::No);
    if (state.offersAnswers()) {
        optYes.setEnabled(true);
        optNo.setEnabled(true);
    }
    if (state.offersDone())
        cmdDone.setEnabled(true);
    for (int pin = 1; pin <= kPins; ++pin) {
        pins(pin).setValue(state.standing.has(pin));
        if (state.offered.has(pin))
            pins(pin).setEnabled(true);
    }
    namePins(state);
}

void BallPanel::close(const FrameEntry::Panel& state) {
    if (!state.offersAnswers()) {
        optYes.setEnabled(false);
        optNo.setEnabled(false);
    }
    if (!state.offersDone())
        cmdDone.setEnabled(false);
    for (int pin = 1; pin <= kPins; ++pin) {
        if (!state.offered.has(pin))
            pins(pin).setEnabled(false);
    }
}

void BallPanel::namePins(const FrameEntry::Panel& state) {
    const std::string down = state.reply == FrameEntry::Reply::None ? "" : ", knocked down";
    for (int pin = 1; pin <= kPins; ++pin)
        pins(pin).setSpokenName("Pin " + std::to_string(pin) +
                                (state.standing.has(pin) ? ", standing" : down));
}

Layout BallPanel::layout() {
    std::vector<Layout> panel{layout::row({question, optYes, optNo, layout::space()}), lblPins,
                              layout::space()};
    for (const std::vector<int>& row : rackRows()) {
        std::vector<Layout> standing;
        standing.reserve(row.size());
        for (const int pin : row)
            standing.emplace_back(pins(pin));
        panel.push_back(layout::row(std::move(standing)).centred());
    }
    panel.push_back(layout::space());  // the pins stand close together, however high the panel
    panel.push_back(layout::row({layout::space(), cmdDone}));
    return layout::group(frame, layout::column(std::move(panel)));
}

}  // namespace tallybrook
