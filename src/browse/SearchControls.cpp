#include "browse/SearchControls.h"

#include <memory>

namespace tallybrook {

namespace {

ControlArray<ComboBox> lists(Screen& screen, const std::string& name, int lastRow, int width,
                             const std::string& spoken) {
    return {name, 0, lastRow, [&](int row, const std::string& element) {
                auto list = std::make_unique<ComboBox>(screen, element, ListOptions{.width = width});
                list->setSpokenName(spokenInRow(spoken, row));
                return list;
            }};
}

}  // namespace

ControlArray<ComboBox> fieldLists(Screen& screen, const std::string& name, int lastRow) {
    return lists(screen, name, lastRow, 18, "Search For");
}

ControlArray<ComboBox> operatorLists(Screen& screen, int lastRow) {
    return lists(screen, "cboSearchOp", lastRow, 24, "That");
}

ControlArray<TextBox> valueBoxes(Screen& screen, int lastRow) {
    return {"txtSearchVal", 0, lastRow, [&screen](int row, const std::string& element) {
                auto box = std::make_unique<TextBox>(
                    screen, element, TextBoxOptions{.tip = "Select the value that you want to search on"});
                box->setSpokenName(spokenInRow("Value", row));
                return box;
            }};
}

std::string spokenInRow(const std::string& name, int row) {
    return name + ", row " + std::to_string(row + 1);
}

}  // namespace tallybrook
