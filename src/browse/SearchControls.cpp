#include "browse/SearchControls.h"

#include <memory>

namespace tallybrook {

namespace {

ControlArray<ComboBox> lists(Screen& screen, const std::string& name, int lastRow, int width) {
    return {name, 0, lastRow, [&screen, width](int, const std::string& element) {
                return std::make_unique<ComboBox>(screen, element, ListOptions{.width = width});
            }};
}

}  // namespace

ControlArray<ComboBox> fieldLists(Screen& screen, const std::string& name, int lastRow) {
    return lists(screen, name, lastRow, 18);
}

ControlArray<ComboBox> operatorLists(Screen& screen, int lastRow) {
    return lists(screen, "cboSearchOp", lastRow, 24);
}

ControlArray<TextBox> valueBoxes(Screen& screen, int lastRow) {
    return {"txtSearchVal", 0, lastRow, [&screen](int, const std::string& element) {
                return std::make_unique<TextBox>(
                    screen, element, TextBoxOptions{.tip = "Select the value that you want to search on"});
            }};
}

}  // namespace tallybrook
