#include "controls/Screen.h"

#include <algorithm>
#include <utility>

namespace tallybrook {

Screen::Screen(Screens& screens, std::string name, std::string caption)
    : screens_(screens), name_(std::move(name)), caption_(std::move(caption)) {}

Control* Screen::find(std::string_view name) const {
    const auto found = std::ranges::find(controls_, name, &Control::name);
    return found == controls_.end() ? nullptr : *found;
}

std::vector<Menu*> Screen::menuBar() const {
    std::vector<Menu*> menus;
    for (Control* control : controls_) {
        if (control->kind() == Control::Kind::Menu && control->above() == nullptr)
            menus.push_back(static_cast<Menu*>(control));
    }
    return menus;
}

}  // namespace tallybrook
