#include "player/ModelStage.h"

#include "controls/Keyboard.h"
#include "controls/Person.h"
#include "player/Typing.h"

namespace tallybrook {

namespace {

Arrival pressKey(Screen& screen, const person::Key& key) {
    const person::Press press = person::press(screen, key);
    Control* const focused = screen.focused();
    if (!press.used && focused != nullptr && focused->kind() == Control::Kind::TextBox)
        person::typeKey(static_cast<TextBox&>(*focused), key);
    return press.arrival;
}

}  // namespace

Arrival ModelStage::moveFocus(Control& control, const std::function<void(Arrival)>& then) {
    // Refused, should the focus not get there because the leaving of another control is given up.
    Arrival arrival = Arrival::Refused;
    program_->perform([&] {
        arrival = control.isFocusable() ? person::arrive(control) : Arrival::Arrived;
        then(arrival);
    });
    return arrival;
}

Arrival ModelStage::click(Control& control) {
    return moveFocus(control, [&](Arrival arrival) {
        if (arrival == Arrival::Arrived || arrival == Arrival::Elsewhere)
            person::activate(control);
    });
}

Arrival ModelStage::type(TextBox& box, const std::string& text) {
    return moveFocus(box, [&](Arrival arrival) {
        if (arrival == Arrival::Arrived) {
            box.selectAll();
            box.enter(text);
        }
    });
}

Arrival ModelStage::focus(Control& control) {
    return moveFocus(control, [](Arrival) {});
}

Arrival ModelStage::use(Control& control, const std::function<void()>& action) {
    return moveFocus(control, [&](Arrival arrival) {
        if (person::isAtHand(control, arrival))
            action();
    });
}

Arrival ModelStage::pick(ItemList& list, const std::function<int()>& index) {
    return use(list, [&] { person::pick(list, index()); });
}

Arrival ModelStage::pickFolder(FolderList& list, const std::function<std::string()>& path) {
    return use(list, [&] { person::pickFolder(list, path()); });
}

Arrival ModelStage::selectRow(Grid& grid, const std::function<int()>& row) {
    return use(grid, [&] { person::selectRow(grid, row()); });
}

Arrival ModelStage::perform(const std::function<Arrival()>& action) {
    Arrival arrival = Arrival::Arrived;
    program_->perform([&] { arrival = action(); });
    return arrival;
}

Arrival ModelStage::tab(Screen& screen, bool backwards) {
    return perform([&] { return person::tab(screen, backwards); });
}

Arrival ModelStage::press(Screen& screen, const std::string& key) {
    return perform([&] { return pressKey(screen, person::readKey(key)); });
}

void ModelStage::close(Screen& screen) {
    program_->perform([&] { person::close(screen); });
}

}  // namespace tallybrook
