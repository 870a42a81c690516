#include "controls/Keyboard.h"

#include "controls/Person.h"
#include "controls/Rack.h"
#include "controls/RowKeys.h"
#include "runtime/Ascii.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <utility>
#include <vector>

namespace tallybrook::person {

namespace {

/// The name of a key that was given by the character it writes.
std::string nameOfKey(std::string_view text) {
    constexpr std::array<std::pair<std::string_view, std::string_view>, 4> kNames{
        {{" ", "Space"}, {"\n", "Return"}, {"\r", "Return"}, {"\t", "Tab"}}};
    const auto* const named = std::ranges::find(kNames, text, [](const auto& entry) { return entry.first; });
    return std::string(named == kNames.end() ? text : named->second);
}

bool isButton(const Control& control) {
    return control.kind() == Control::Kind::Button;
}

bool isMenu(const Control& control) {
    return control.kind() == Control::Kind::Menu;
}

TextBox* asTextBox(Control* control) {
    return control != nullptr && control->kind() == Control::Kind::TextBox ? static_cast<TextBox*>(control)
                                                                           : nullptr;
}

/// The first control in a group that can take the focus; nullptr if there is none.
const Control* firstIn(const Control& group) {
    const std::vector<Control*> order = group.screen().tabOrder();
    const auto first = std::ranges::find_if(
        order, [&](const Control* control) { return control->canTakeFocus() && control->standsIn(group); });
    return first == order.end() ? nullptr : *first;
}

/// What the Alt letter of a caption leads to: of a label the control that it names, of a group the first
/// control in it. nullptr if it leads nowhere.
const Control* ledToBy(const Control& caption) {
    if (isPressable(caption) || isMenu(caption))
        return &caption;
    if (!caption.isVisible())
        return nullptr;
    if (caption.kind() == Control::Kind::Label)
        return static_cast<const Label&>(caption).names();
    return caption.kind() == Control::Kind::GroupBox ? firstIn(caption) : nullptr;
}

/// Whether an Alt letter may lead there, whatever its state: to what can take the focus, and to a menu of the
/// bar.
bool isInRing(const Control& control) {
    if (!isMenu(control))
        return control.isFocusable();
    const auto& menu = static_cast<const Menu&>(control);
    return menu.above() == nullptr && !menu.isEntry();
}

/// All of that: the tab order, and then the menus. It begins behind the focus, or behind the menu that such a
/// letter has opened since.
std::vector<Control*> ringOf(const Screen& screen) {
    std::vector<Control*> ring = screen.tabOrder();
    std::ranges::copy_if(screen.menuBar(), std::back_inserter(ring),
                         [](const Menu* menu) { return isInRing(*menu); });
    const Control* const from = screen.ledTo() == nullptr ? screen.focused() : screen.ledTo();
    const auto current = std::ranges::find(ring, from);
    if (current != ring.end())
        std::rotate(ring.begin(), current + 1, ring.end());
    return ring;
}

/// What of it a letter leads to, in the order of the captions.
std::vector<const Control*> allLedToBy(const Screen& screen, char letter) {
    std::vector<const Control*> ledTo;
    for (const Control* const caption : screen.controls()) {
        const Control* const control = accessLetter(*caption) == letter ? ledToBy(*caption) : nullptr;
        if (control != nullptr && isInRing(*control) && std::ranges::find(ledTo, control) == ledTo.end())
            ledTo.push_back(control);
    }
    return ledTo;
}

/// The same, the next one first.
std::vector<Control*> ledToBy(const Screen& screen, char letter) {
    const std::vector<const Control*> ledTo = allLedToBy(screen, letter);
    std::vector<Control*> ring = ringOf(screen);
    std::erase_if(ring,
                  [&](const Control* control) { return std::ranges::find(ledTo, control) == ledTo.end(); });
    return ring;
}

/// The same without what cannot be used now.
std::vector<Control*> usableBy(const Screen& screen, char letter) {
    std::vector<Control*> ledTo = ledToBy(screen, letter);
    std::erase_if(ledTo,
                  [](const Control* control) { return !control->isEnabled() || !control->isVisible(); });
    return ledTo;
}

Menu* entryWithShortcut(const Screen& screen, const std::string& shortcut) {
    for (Control* control : screen.controls()) {
        if (control->kind() != Control::Kind::Menu)
            continue;
        auto* const menu = static_cast<Menu*>(control);
        if (menu->isEntry() && !shortcut.empty() && menu->shortcut() == shortcut)
            return menu;
    }
    return nullptr;
}

/// The button that Return or Escape presses where the focused control does not take the key itself.
Button* standingButton(const Screen& screen, bool ButtonOptions::*role) {
    for (Control* control : screen.controls()) {
        if (isButton(*control) && static_cast<Button*>(control)->options().*role)
            return static_cast<Button*>(control);
    }
    return nullptr;
}

/// The option or check box beside `from`, in the order of declaration, round and round.
Control* neighbour(const Control& from, bool backwards) {
    std::vector<Control*> around;
    for (Control* control : from.screen().controls()) {
        if (control->kind() == from.kind() && control->above() == from.above())
            around.push_back(control);
    }
    if (backwards)
        std::ranges::reverse(around);
    std::rotate(around.begin(), std::ranges::find(around, &from) + 1, around.end());
    const auto next =
        std::ranges::find_if(around, [](const Control* control) { return control->canTakeFocus(); });
    return next == around.end() ? nullptr : *next;
}

Press used(Arrival arrival, Control* target) {
    return {.used = true, .arrival = arrival, .target = target};
}

Press pressClick(Control* target) {
    return target == nullptr ? Press{} : used(click(*target), target);
}

Press pressTab(Screen& screen, bool backwards) {
    Control* const next = screen.nextInTabOrder(screen.focused(), backwards);
    return used(next == nullptr ? Arrival::Refused : arrive(*next), next);
}

/// A letter of one control alone presses it, one of several moves on to the next of them.
Press pressAlt(Screen& screen, const Key& key) {
    Control* const target = reachedBy(screen, key);
    if (target == nullptr)
        return {};
    const bool isAlone = usableBy(screen, key.name[0]).size() == 1;
    if (isAlone && isPressable(*target) && accessLetter(*target) == key.name[0])
        return pressClick(target);
    screen.noteLedTo(*target);
    return used(isMenu(*target) ? Arrival::Arrived : arrive(*target), target);
}

Press pressReturn(const Screen& screen) {
    Control* const focused = screen.focused();
    if (focused != nullptr && isButton(*focused))
        return pressClick(focused);
    if (const TextBox* const box = asTextBox(focused); box != nullptr && box->options().multiline)
        return {};
    return pressClick(standingButton(screen, &ButtonOptions::isDefault));
}

Press pressSpace(const Screen& screen) {
    Control* const focused = screen.focused();
    return focused != nullptr && isPressable(*focused) ? pressClick(focused) : Press{};
}

/// An arrow key leads over a rack as it is laid out, and among other options and check boxes round and round.
Press pressArrow(const Screen& screen, const std::string& key) {
    Control* const focused = screen.focused();
    if (focused == nullptr || !isPressable(*focused))
        return {};
    const bool isSideways = key == "Left" || key == "Right";
    Control* target = nullptr;
    if (isOnRack(*focused) && (isPin(*focused) || !isSideways))
        target = besideOnRack(*focused, key);
    else if (!isButton(*focused))
        target = neighbour(*focused, key == "Up" || key == "Left");
    return target == nullptr ? Press{} : used(arrive(*target), target);
}

Press pressShortcut(Screen& screen, const Key& key) {
    const std::string text = key.control ? "Ctrl+" + key.name : key.name;
    Menu* const entry = entryWithShortcut(screen, text);
    if (entry == nullptr && text == "F1")
        screen.onHelp();
    if (entry == nullptr || !entry->isEnabled())
        return {};
    activate(*entry);
    return used(Arrival::Arrived, entry);
}

}  // namespace

Key readKey(std::string_view text) {
    Key key;
    const auto takes = [&text](std::string_view modifier) {
        if (!text.starts_with(modifier) || text.size() == modifier.size())
            return false;
        text.remove_prefix(modifier.size());
        return true;
    };
    for (bool more = true; more;) {
        more = false;
        if (takes("Alt+"))
            more = key.alt = true;
        if (takes("Ctrl+"))
            more = key.control = true;
        if (takes("Shift+"))
            more = key.shift = true;
    }
    key.name = nameOfKey(text);
    if ((key.alt || key.control) && key.name.size() == 1)
        key.name[0] = toUpper(key.name[0]);
    return key;
}

std::string keysOf(const Menu& entry) {
    const std::optional<char> letter = entry.runs() == nullptr ? std::nullopt : accessLetter(*entry.runs());
    if (!entry.shortcut().empty() || !letter)
        return entry.shortcut();
    return allLedToBy(entry.screen(), *letter).size() == 1 ? std::string("Alt+") + *letter : std::string();
}

Control* reachedBy(const Screen& screen, const Key& key) {
    if (!key.alt || key.name.size() != 1)
        return nullptr;
    const std::vector<Control*> usable = usableBy(screen, key.name[0]);
    const bool isMenuAlone = usable.size() == 1 && isMenu(*usable.front());
    return usable.empty() || isMenuAlone ? nullptr : usable.front();
}

Arrival tab(Screen& screen, bool backwards) {
    return pressTab(screen, backwards).arrival;
}

Press press(Screen& screen, const Key& key) {
    if (key.alt)
        return pressAlt(screen, key);
    if (const Press moved = pressInRows(screen, key); moved.used)
        return moved;
    if (key.name == "Tab" && !key.control)
        return pressTab(screen, key.shift);
    if (key.name == "Return" || key.name == "Enter")
        return pressReturn(screen);
    if (key.name == "Escape")
        return pressClick(standingButton(screen, &ButtonOptions::isCancel));
    if (key.name == "Space")
        return pressSpace(screen);
    if (key.name == "Up" || key.name == "Left" || key.name == "Down" || key.name == "Right")
        return pressArrow(screen, key.name);
    return pressShortcut(screen, key);
}

}  // namespace tallybrook::person
