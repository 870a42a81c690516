#include "player/KeyNames.h"

#include "controls/Keyboard.h"
#include "runtime/TextCompare.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tallybrook {

namespace {

constexpr std::array<std::pair<std::string_view, Qt::Key>, 28> kKeys{{
    {"Tab", Qt::Key_Tab},       {"Return", Qt::Key_Return},
    {"Enter", Qt::Key_Enter},   {"Escape", Qt::Key_Escape},
    {"Space", Qt::Key_Space},   {"Backspace", Qt::Key_Backspace},
    {"Delete", Qt::Key_Delete}, {"Insert", Qt::Key_Insert},
    {"Up", Qt::Key_Up},         {"Down", Qt::Key_Down},
    {"Left", Qt::Key_Left},     {"Right", Qt::Key_Right},
    {"Home", Qt::Key_Home},     {"End", Qt::Key_End},
    {"PageUp", Qt::Key_PageUp}, {"PageDown", Qt::Key_PageDown},
    {"F1", Qt::Key_F1},         {"F2", Qt::Key_F2},
    {"F3", Qt::Key_F3},         {"F4", Qt::Key_F4},
    {"F5", Qt::Key_F5},         {"F6", Qt::Key_F6},
    {"F7", Qt::Key_F7},         {"F8", Qt::Key_F8},
    {"F9", Qt::Key_F9},         {"F10", Qt::Key_F10},
    {"F11", Qt::Key_F11},       {"F12", Qt::Key_F12},
}};

}  // namespace

std::optional<Qt::Key> keyNamed(std::string_view name) {
    const auto* const found = std::ranges::find(kKeys, name, &std::pair<std::string_view, Qt::Key>::first);
    return found == kKeys.end() ? std::nullopt : std::optional{found->second};
}

bool isKey(std::string_view text) {
    const person::Key key = person::readKey(text);
    return characterCount(key.name) == 1 || keyNamed(key.name).has_value();
}

}  // namespace tallybrook
