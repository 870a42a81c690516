#include "shell/Person.h"

#include "runtime/Ascii.h"
#include "runtime/TextCompare.h"
#include "shell/Rack.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <utility>

namespace tallybrook::person {

namespace {

bool isButton(const Control& control) {
    return control.kind() == Control::Kind::Button;
}

/// Whether the control answers a click with more than taking the focus.
bool isPressed(const Control& control) {
    return isButton(control) || control.kind() == Control::Kind::OptionButton ||
           control.kind() == Control::Kind::CheckBox;
}

TextBox* asTextBox(Control* control) {
    return control != nullptr && control->kind() == Control::Kind::TextBox ? static_cast<TextBox*>(control)
                                                                           : nullptr;
}

/// Whether Alt with this letter reaches the control: by its own caption, or by a label that names it.
bool isReachedBy(const Control& control, char letter) {
    if (isPressed(control) && accessLetter(control) == letter)
        return true;
    return std::ranges::any_of(control.screen().controls(), [&](const Control* other) {
        return other->kind() == Control::Kind::Label &&
               static_cast<const Label*>(other)->names() == &control && other->isVisible() &&
               accessLetter(*other) == letter;
    });
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

Press pressAlt(const Screen& screen, const Key& key) {
    Control* const target = reachedBy(screen, key);
    if (target == nullptr)
        return {};
    return isPressed(*target) && accessLetter(*target) == key.name[0] ? pressClick(target)
                                                                      : used(arrive(*target), target);
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
    return focused != nullptr && isPressed(*focused) ? pressClick(focused) : Press{};
}

/// An arrow key leads over a rack as it is laid out, and among other options and check boxes round and round.
Press pressArrow(const Screen& screen, const std::string& key) {
    Control* const focused = screen.focused();
    if (focused == nullptr || !isPressed(*focused))
        return {};
    const bool isSideways = key == "Left" || key == "Right";
    Control* target = nullptr;
    if (isOnRack(*focused) && (isPin(*focused) || !isSideways))
        target = besideOnRack(*focused, key);
    else if (!isButton(*focused))
        target = neighbour(*focused, key == "Up" || key == "Left");
    return target == nullptr ? Press{} : used(arrive(*target), target);
}

/// Where a key moves to among `count` places from 0, of which `current` is the one now (-1 for none); nothing
/// if it is no key that moves, or there is nowhere to go.
std::optional<int> placeAfter(const std::string& key, int current, int count) {
    constexpr int kPage = 10;
    struct Move {
        std::string_view key;
        int to;
    };
    const std::array<Move, 6> moves{{{"Up", current - 1},
                                     {"Down", current + 1},
                                     {"PageUp", current - kPage},
                                     {"PageDown", current + kPage},
                                     {"Home", 0},
                                     {"End", count - 1}}};
    const auto* const move = std::ranges::find(moves, key, &Move::key);
    if (move == moves.end() || count == 0)
        return std::nullopt;
    const int place = std::clamp(move->to, 0, count - 1);
    return place == current ? std::nullopt : std::optional(place);
}

/// The next place after the current one, round and round, whose text begins with the character that the key
/// writes.
std::optional<int> placeBeginningWith(const std::string& key, int current,
                                      const std::vector<std::string>& texts) {
    if (characterCount(key) != 1)
        return std::nullopt;
    const int count = static_cast<int>(texts.size());
    for (int step = 1; step <= count; ++step) {
        const int place = (current + step) % count;
        if (compareText(firstCharacters(texts[static_cast<std::size_t>(place)], 1), key) == 0)
            return place;
    }
    return std::nullopt;
}

/// Where a key moves to among texts of which `current` is the one now (-1 for none); nothing if it is no such
/// key.
std::optional<int> placeReached(const Key& key, int current, const std::vector<std::string>& texts) {
    const bool isCharacter = characterCount(key.name) == 1;
    if (key.control || (key.shift && !isCharacter))
        return std::nullopt;
    return isCharacter ? placeBeginningWith(key.name, current, texts)
                       : placeAfter(key.name, current, static_cast<int>(texts.size()));
}

Press pressInList(ItemList& list, const Key& key) {
    const std::optional<int> index = placeReached(key, list.pickedIndex().value_or(-1), list.items());
    if (!index)
        return {};
    list.pick(*index);
    return used(Arrival::Arrived, &list);
}

/// The row of the folder that holds the one of a row; the row itself at the root.
int rowAbove(const FolderList& list, int row) {
    const std::vector<FolderRow>& rows = list.rows();
    const auto depth = [&rows](int at) { return rows[static_cast<std::size_t>(at)].depth; };
    int above = row;
    while (above > 0 && depth(above) >= depth(row))
        --above;
    return above;
}

void openOrGoIn(FolderList& list) {
    const auto isOpen = [&list] { return list.rows()[static_cast<std::size_t>(list.cursor())].isOpen; };
    if (isOpen())
        list.moveCursor(list.cursor() + 1);
    else
        list.open(list.cursor());
}

void closeOrGoOut(FolderList& list) {
    const std::size_t before = list.rows().size();
    list.close(list.cursor());
    if (list.rows().size() == before)
        list.moveCursor(rowAbove(list, list.cursor()));
}

void pickAtCursor(FolderList& list) {
    list.pickFolder(list.rows()[static_cast<std::size_t>(list.cursor())].path);
}

/// The keys that move in a tree move its cursor: a folder is picked on purpose only.
Press pressInFolders(FolderList& list, const Key& key) {
    struct Action {
        std::string_view key;
        void (*act)(FolderList& list);
    };
    constexpr std::array<Action, 3> kActions{
        {{"Right", openOrGoIn}, {"Left", closeOrGoOut}, {"Space", pickAtCursor}}};
    if (const auto* const action = std::ranges::find(kActions, key.name, &Action::key);
        action != kActions.end() && !key.control && !key.shift) {
        action->act(list);
        return used(Arrival::Arrived, &list);
    }
    std::vector<std::string> names;
    std::ranges::transform(list.rows(), std::back_inserter(names), &FolderRow::name);
    const std::optional<int> row = placeReached(key, list.cursor(), names);
    if (!row)
        return {};
    list.moveCursor(*row);
    return used(Arrival::Arrived, &list);
}

Press pressInGrid(Grid& grid, const Key& key) {
    if (key.control || key.shift)
        return {};
    const std::optional<int> row = placeAfter(key.name, grid.currentRow() - 1, grid.rowCount());
    if (!row)
        return {};
    grid.selectRow(*row + 1);
    return used(Arrival::Arrived, &grid);
}

/// A key that moves in the list or grid that has the focus.
Press pressInRows(const Screen& screen, const Key& key) {
    Control* const focused = screen.focused();
    if (focused == nullptr || !focused->canTakeFocus())
        return {};
    if (focused->kind() == Control::Kind::Grid)
        return pressInGrid(static_cast<Grid&>(*focused), key);
    if (focused->kind() == Control::Kind::FolderList)
        return pressInFolders(static_cast<FolderList&>(*focused), key);
    return focused->isList() ? pressInList(static_cast<ItemList&>(*focused), key) : Press{};
}

/// The name of a key that was given by the character it writes.
std::string nameOfKey(std::string_view text) {
    constexpr std::array<std::pair<std::string_view, std::string_view>, 4> kNames{
        {{" ", "Space"}, {"\n", "Return"}, {"\r", "Return"}, {"\t", "Tab"}}};
    const auto* const named = std::ranges::find(kNames, text, [](const auto& entry) { return entry.first; });
    return std::string(named == kNames.end() ? text : named->second);
}

Press pressShortcut(const Screen& screen, const Key& key) {
    std::string text = key.control ? "Ctrl+" + key.name : key.name;
    Menu* const entry = entryWithShortcut(screen, text);
    if (entry == nullptr || !entry->isEnabled())
        return {};
    activate(*entry);
    return used(Arrival::Arrived, entry);
}

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// Where the character before the place begins.
std::size_t oneBack(std::string_view text, std::size_t at) {
    while (at > 0 && isContinuation(text[--at])) {
    }
    return at;
}

/// Where the character behind the place ends.
std::size_t oneOn(std::string_view text, std::size_t at) {
    while (at < text.size() && ++at < text.size() && isContinuation(text[at])) {
    }
    return at;
}

/// Left, Right, Home and End; from a selection to its beginning or end.
bool moveCaret(TextBox& box, const Key& key) {
    const std::string& text = box.text();
    const bool isSelected = box.isAllSelected();
    if (key.name == "Home" || (key.name == "Left" && isSelected))
        box.moveCaret(0);
    else if (key.name == "End" || (key.name == "Right" && isSelected))
        box.moveCaret(text.size());
    else if (key.name == "Left")
        box.moveCaret(oneBack(text, box.caret()));
    else if (key.name == "Right")
        box.moveCaret(oneOn(text, box.caret()));
    else
        return false;
    return true;
}

/// Enters the text with a part of it put in the place of another, and the caret behind that part.
void replacePart(TextBox& box, std::size_t from, std::size_t to, std::string_view part) {
    std::string text = box.text();
    text.replace(from, to - from, part);
    const int limit = box.options().maxLength;
    if (!part.empty() && limit != 0 && characterCount(text) > static_cast<std::size_t>(limit))
        return;
    box.enter(text);
    if (box.text() == text)
        box.moveCaret(from + part.size());
}

bool deleteCharacter(TextBox& box, const Key& key) {
    if (key.name != "Backspace" && key.name != "Delete")
        return false;
    const std::size_t caret = box.caret();
    if (box.isAllSelected())
        replacePart(box, 0, box.text().size(), {});
    else if (key.name == "Backspace")
        replacePart(box, oneBack(box.text(), caret), caret, {});
    else
        replacePart(box, caret, oneOn(box.text(), caret), {});
    return true;
}

/// What a key writes into a box; nothing if it writes nothing.
std::string_view writtenBy(const TextBox& box, const Key& key) {
    if (key.name == "Return")
        return box.options().multiline ? "\n" : "";
    if (key.name == "Space")
        return " ";
    const bool isCharacter = key.name.size() == 1 || (static_cast<unsigned char>(key.name[0]) & 0x80U) != 0;
    return isCharacter ? std::string_view(key.name) : std::string_view();
}

bool insertCharacter(TextBox& box, const Key& key) {
    const std::string_view written = writtenBy(box, key);
    if (written.empty())
        return false;
    const bool isSelected = box.isAllSelected();
    replacePart(box, isSelected ? 0 : box.caret(), isSelected ? box.text().size() : box.caret(), written);
    return true;
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
    const auto reached = std::ranges::count_if(entry.screen().controls(), [&](const Control* control) {
        return control->isFocusable() && isReachedBy(*control, *letter);
    });
    return reached == 1 ? std::string("Alt+") + *letter : std::string();
}

Control* reachedBy(const Screen& screen, const Key& key) {
    if (!key.alt || key.name.size() != 1)
        return nullptr;
    std::vector<Control*> order = screen.tabOrder();
    const auto current = std::ranges::find(order, screen.focused());
    if (current != order.end())
        std::rotate(order.begin(), current + 1, order.end());
    const auto found = std::ranges::find_if(order, [&](const Control* control) {
        return control->canTakeFocus() && isReachedBy(*control, key.name[0]);
    });
    return found == order.end() ? nullptr : *found;
}

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
    if (arrival == Arrival::Arrived)
        box.enter(text);
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

bool typeKey(TextBox& box, const Key& key) {
    if (key.alt || key.control)
        return false;
    return moveCaret(box, key) || deleteCharacter(box, key) || insertCharacter(box, key);
}

void close(Screen& screen) {
    screen.onClose();
}

}  // namespace tallybrook::person
