#include "controls/Screens.h"

#include "controls/Screen.h"

#include <algorithm>
#include <utility>

namespace tallybrook {

Screens::Screens(Display& display) : display_(display) {}

Screens::~Screens() = default;

void Screens::load(const std::string& name) {
    if (find(name) != nullptr)
        return;
    Screen& screen = *loaded_.emplace_back(factories_.at(name)());
    screen.loaded_ = true;
    display_.loaded(screen);
    screen.onLoad();
}

void Screens::show(Screen& screen) {
    if (!screen.loaded_)
        return;
    const bool wasVisible = std::exchange(screen.visible_, true);
    const bool wasInFront = front() == &screen;
    std::erase(shown_, &screen);
    shown_.push_back(&screen);
    if (!wasVisible)
        display_.shown(screen);
    else if (!wasInFront)
        display_.raised(screen);
}

void Screens::hide(Screen& screen) {
    if (!std::exchange(screen.visible_, false))
        return;
    std::erase(shown_, &screen);
    display_.hidden(screen);
}

void Screens::unload(Screen& screen) {
    const auto found = std::ranges::find(loaded_, &screen, &std::unique_ptr<Screen>::get);
    if (found == loaded_.end())
        return;
    screen.loaded_ = false;
    screen.visible_ = false;
    std::erase(shown_, &screen);
    unloaded_.push_back(std::move(*found));
    loaded_.erase(found);
    screen.onUnload();
    display_.unloaded(screen);
    screen.onUnloaded();
}

void Screens::showLast() {
    if (!loaded_.empty())
        show(*loaded_.back());
}

void Screens::goBackFrom(Screen& screen) {
    unload(screen);
    showLast();
}

void Screens::startAfresh(const std::string& name) {
    while (!loaded_.empty())
        unload(*loaded_.back());
    load(name);
}

std::vector<Screen*> Screens::loaded() const {
    std::vector<Screen*> screens;
    for (const auto& screen : loaded_)
        screens.push_back(screen.get());
    return screens;
}

Screen* Screens::find(const std::string& name) const {
    const auto found =
        std::ranges::find_if(loaded_, [&](const auto& screen) { return screen->name() == name; });
    return found == loaded_.end() ? nullptr : found->get();
}

Screen* Screens::front() const {
    return shown_.empty() ? nullptr : shown_.back();
}

void Screens::dropUnloaded() {
    unloaded_.clear();
}

void Screens::dropAll() {
    shown_.clear();
    while (!loaded_.empty())
        loaded_.pop_back();
    unloaded_.clear();
}

}  // namespace tallybrook
