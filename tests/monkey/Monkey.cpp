#include "monkey/Monkey.h"

#include "controls/Grid.h"
#include "monkey/OddTexts.h"
#include "player/Words.h"

#include <algorithm>
#include <vector>

#include <fmt/format.h>

namespace tallybrook::test {

namespace {

constexpr int kTries = 20;

bool leavesTheProgram(const Control& control) {
    return control.name().ends_with("Exit");
}

/// Whether it leads away from what has been done on the screen.
bool leadsAway(const Control& control) {
    return control.name().ends_with("Main") || control.name().ends_with("Previous") ||
           control.name().ends_with("About") || control.name().ends_with("Menu") ||
           control.name().find("Reset") != std::string::npos;
}

/// Whether it leads from events to games, and from games to frames, which is a long way by chance.
bool leadsOn(const Control& control) {
    return control.name().starts_with("cmdUpd") || control.name().starts_with("mnuUpd");
}

/// The words between `before` and `after` in a line.
std::string_view between(std::string_view line, std::string_view before, std::string_view after) {
    const std::size_t begin = line.find(before) + before.size();
    return line.substr(begin, line.find(after, begin) - begin);
}

std::vector<std::string> buttonsIn(std::string_view box) {
    std::vector<std::string> buttons;
    std::string_view rest = between(box, " buttons=", " default=");
    while (!rest.empty()) {
        buttons.emplace_back(rest.substr(0, rest.find('|')));
        rest.remove_prefix(std::min(rest.size(), buttons.back().size() + 1));
    }
    return buttons;
}

}  // namespace

std::string Monkey::act(const Screen& screen) {
    const int what = dice_.between(1, 100);
    if (what <= 1)
        return "close";
    if (what <= 2)
        return "clock " + inQuotes(dice_.anyOf(moments()));
    if (what <= 5)
        return dice_.happens(700) ? "tab" : "backtab";
    if (what <= 15)
        return pressKey(screen);
    if (const Control* const focused = screen.focused();
        focused != nullptr && focused->hasRows() && dice_.happens(500))
        return use(*focused);
    return use(anyControl(screen));
}

std::string Monkey::answer(std::string_view asked) {
    if (asked.starts_with("input "))
        return dice_.happens(200) ? "answer Cancel" : "reply " + inQuotes(anyText());
    if (asked.starts_with("dialog "))
        return dice_.happens(200) ? "choose cancel" : "choose " + inQuotes(dice_.anyOf(files()));
    const bool ends = asked.starts_with("box title=\"Confirm - Exit\"");
    return ends && dice_.happens(800) ? "answer No" : "answer " + dice_.anyOf(buttonsIn(asked));
}

/// A control to be used: mostly one that can be used, seldom one that leads away.
const Control& Monkey::anyControl(const Screen& screen) {
    const std::vector<Control*>& controls = screen.controls();
    if (const auto on =
            std::ranges::find_if(controls, [](const Control* control) { return leadsOn(*control); });
        on != controls.end() && dice_.happens(60))
        return **on;
    for (int tries = 0; tries < kTries; ++tries)
        if (const Control& control = *dice_.anyOf(controls); isWanted(control))
            return control;
    return *dice_.anyOf(controls);
}

bool Monkey::isWanted(const Control& control) {
    if (!control.isEnabled() || !control.isVisible())
        return dice_.happens(30);
    if (leavesTheProgram(control))
        return dice_.happens(50);
    if (leadsAway(control))
        return dice_.happens(150);
    return control.isFocusable() || control.kind() == Control::Kind::Menu || dice_.happens(50);
}

std::string Monkey::use(const Control& control) {
    if (control.kind() == Control::Kind::TextBox)
        return fmt::format("type {} {}", control.name(), inQuotes(anyText()));
    if (control.hasRows() && !control.hasFocus())
        return "focus " + control.name();
    if (control.kind() == Control::Kind::Grid) {
        const int rows = static_cast<const Grid&>(control).rowCount();
        return rows == 0 ? "tab" : fmt::format("row {} {}", control.name(), dice_.between(1, rows));
    }
    if (control.isList())
        return choose(static_cast<const ItemList&>(control));
    return "click " + control.name();
}

std::string Monkey::choose(const ItemList& list) {
    std::vector<std::size_t> allowed;
    const bool holdsPlaces =
        list.kind() == Control::Kind::FolderList || list.kind() == Control::Kind::DriveList;
    for (std::size_t item = 0; item < list.items().size(); ++item)
        if (!holdsPlaces || isAtHome(list.items()[item]))
            allowed.push_back(item);
    return allowed.empty() ? "tab" : fmt::format("pick {} #{}", list.name(), dice_.anyOf(allowed));
}

std::string Monkey::pressKey(const Screen& screen) {
    const Control* const focused = screen.focused();
    // The keys of these lists pick any folder of the machine.
    const bool holdsPlaces = focused != nullptr && (focused->kind() == Control::Kind::FolderList ||
                                                    focused->kind() == Control::Kind::DriveList);
    return "press " + inQuotes(holdsPlaces ? "Tab" : dice_.anyOf(keys()));
}

std::string Monkey::anyText() {
    return dice_.anyOf(dice_.happens(250) ? oddTexts() : likelyTexts());
}

bool Monkey::isAtHome(std::string_view folder) const {
    return folder.starts_with(home_.string());
}

}  // namespace tallybrook::test
