#include "controls/Person.h"

namespace tallybrook::person {

Arrival arrive(Control& control) {
    return control.screen().moveFocus(control);
}

void activate(Control& control) {
    if (!control.isEnabled() || !control.isVisible() || !control.screen().isVisible())
        return;
    switch (control.kind()) {
        case Control::Kind::Button:
            return control.click();
        case Control::Kind::Menu:
            if (static_cast<Menu&>(control).isEntry())
                control.click();
            return;
        case Control::Kind::OptionButton:
            return static_cast<OptionButton&>(control).setValue(true);
        case Control::Kind::CheckBox: {
            auto& box = static_cast<CheckBox&>(control);
            return box.setValue(!box.value());
        }
        default:
            return;
    }
}

Arrival click(Control& control) {
    const Arrival arrival = control.isFocusable() ? arrive(control) : Arrival::Arrived;
    if (arrival == Arrival::Arrived || arrival == Arrival::Elsewhere)
        activate(control);
    return arrival;
}

Arrival type(TextBox& box, std::string_view text) {
    const Arrival arrival = arrive(box);
    if (arrival == Arrival::Arrived) {
        box.selectAll();
        box.enter(text);
    }
    return arrival;
}

Arrival edit(TextBox& box, std::string_view text) {
    const bool wasThere = box.hasFocus();
    const Arrival arrival = arrive(box);
    if (arrival == Arrival::Arrived) {
        if (!wasThere)
            box.dropSelection();
        box.enter(text);
    }
    return arrival;
}

bool isAtHand(const Control& control, Arrival arrival) {
    return arrival == Arrival::Arrived && control.canTakeFocus() && control.screen().isVisible();
}

Arrival pick(ItemList& list, int index) {
    const Arrival arrival = arrive(list);
    if (isAtHand(list, arrival))
        list.pick(index);
    return arrival;
}

Arrival pickFolder(FolderList& list, const std::string& path) {
    const Arrival arrival = arrive(list);
    if (isAtHand(list, arrival))
        list.pickFolder(path);
    return arrival;
}

Arrival toggleFolder(FolderList& list, int row) {
    const Arrival arrival = arrive(list);
    if (!isAtHand(list, arrival))
        return arrival;
    if (row >= 0 && row < static_cast<int>(list.rows().size()) &&
        list.rows()[static_cast<std::size_t>(row)].isOpen)
        list.close(row);
    else
        list.open(row);
    return arrival;
}

Arrival selectRow(Grid& grid, int row) {
    const Arrival arrival = arrive(grid);
    if (isAtHand(grid, arrival))
        grid.selectRow(row);
    return arrival;
}

void close(Screen& screen) {
    screen.onClose();
}

}  // namespace tallybrook::person
