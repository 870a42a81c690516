#include "player/ControlState.h"

#include "controls/Grid.h"
#include "controls/Lists.h"

namespace tallybrook {

namespace {

std::string_view yesOrNo(bool holds) {
    return holds ? "yes" : "no";
}
std::string_view onOrOff(bool value) {
    return value ? "on" : "off";
}

/// The texts in their quoted form, beside each other.
std::string beside(const std::vector<std::string>& texts, const Transcript& transcript) {
    std::string written;
    for (const std::string& text : texts)
        written += (written.empty() ? "" : "|") + transcript.text(text);
    return written;
}

class StateText {
public:
    explicit StateText(const Transcript& transcript) : transcript_(transcript) {}

    void addText(std::string_view what, std::string_view text) { add(what, transcript_.text(text)); }
    void addTexts(std::string_view what, const std::vector<std::string>& texts) {
        add(what, "[" + beside(texts, transcript_) + "]");
    }
    void add(std::string_view what, std::string_view state) {
        written_.append(written_.empty() ? "" : " ").append(what).append("=").append(state);
    }
    [[nodiscard]] const std::string& written() const { return written_; }

private:
    const Transcript& transcript_;
    std::string written_;
};

void addItems(StateText& state, const ItemList& list) {
    state.addTexts("list", list.items());
    state.addText("picked", list.picked());
}

void addRows(StateText& state, const Grid& grid) {
    state.addText("caption", grid.caption());
    state.add("row", std::to_string(grid.currentRow()));
    state.add("rows", std::to_string(grid.rowCount()));
}

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
        case Control::Kind::ComboBox:
        case Control::Kind::ListBox:
        case Control::Kind::DriveList:
        case Control::Kind::FolderList:
            return addItems(state, static_cast<const ItemList&>(control));
        case Control::Kind::Grid:
            return addRows(state, static_cast<const Grid&>(control));
        case Control::Kind::Button:
        case Control::Kind::Label:
        case Control::Kind::GroupBox:
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

std::vector<std::string> rowsOf(const Control& control, const Transcript& transcript) {
    std::vector<std::string> written;
    if (control.kind() != Control::Kind::Grid)
        return written;
    const auto& grid = static_cast<const Grid&>(control);
    const auto columns = static_cast<int>(grid.columns().size());
    for (int row = 1; row <= grid.rowCount(); ++row) {
        std::vector<std::string> cells;
        cells.reserve(grid.columns().size());
        for (int column = 0; column < columns; ++column)
            cells.push_back(grid.cell(row, column));
        written.push_back(std::to_string(row) + ": " + beside(cells, transcript));
    }
    return written;
}

}  // namespace tallybrook
