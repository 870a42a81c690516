#include "player/ControlState.h"

namespace tallybrook {

namespace {

std::string_view yesOrNo(bool holds) {
    return holds ? "yes" : "no";
}
std::string_view onOrOff(bool value) {
    return value ? "on" : "off";
}

class StateText {
public:
    explicit StateText(const Transcript& transcript) : transcript_(transcript) {}

    void addText(std::string_view what, std::string_view text) { add(what, transcript_.text(text)); }
    void add(std::string_view what, std::string_view state) {
        written_.append(written_.empty() ? "" : " ").append(what).append("=").append(state);
    }
    [[nodiscard]] const std::string& written() const { return written_; }

private:
    const Transcript& transcript_;
    std::string written_;
};

void addContents(StateText& state, const Control& control) {
    switch (control.kind()) {
        case Control::Kind::TextBox:
            return state.addText("text", static_cast<const TextBox&>(control).text());
        case Control::Kind::OptionButton:
            state.addText("caption", control.caption());
            return state.add("value", onOrOff(static_cast<const OptionButton&>(control).value()));
        case Control::Kind::CheckBox:
            state.addText("caption", control.caption());
            return state.add("value", onOrOff(static_cast<const CheckBox&>(control).value()));
        case Control::Kind::Button:
        case Control::Kind::Label:
        case Control::Kind::Frame:
        case Control::Kind::Menu:
            return state.addText("caption", control.caption());
        case Control::Kind::Picture:
            return;
    }
}

}  // namespace

std::string stateOf(const Control& control, bool hasFocus, const Transcript& transcript) {
    StateText state(transcript);
    addContents(state, control);
    state.add("enabled", yesOrNo(control.isEnabled()));
    state.add("visible", yesOrNo(control.isVisible()));
    state.add("focus", yesOrNo(hasFocus));
    return state.written();
}

}  // namespace tallybrook
