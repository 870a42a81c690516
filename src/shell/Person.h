#pragma once

#include "shell/Grid.h"
#include "shell/Lists.h"
#include "shell/Screen.h"

#include <string>
#include <string_view>

// What a person does on a screen, with mouse and keyboard, in the program's own terms. Every display passes
// what it sees its user do to these functions, inside Program::perform(), and so behaves alike.
namespace tallybrook::person {

/// A key with its modifiers, as in "Alt+N", "F1", "Shift+Tab", "Return", "Space", "a".
struct Key {
    bool alt = false;
    bool control = false;
    bool shift = false;
    std::string name;  // one character (letters in upper case after Alt or Control) or a key's name
};

/// Reads the text form of a key; the name is empty where it is none. A blank is "Space", a line end "Return".
Key readKey(std::string_view text);

/// The control that Alt with a letter reaches now: by its own caption, or by the label that names it; of
/// several the next one after the focus. nullptr if there is none, or the key is no such key.
Control* reachedBy(const Screen& screen, const Key& key);

/// The key that does what a menu entry does: its shortcut, or Alt with the letter of the button that it runs,
/// where that letter reaches nothing else on the screen; empty if there is none.
std::string keysOf(const Menu& entry);

/// Moves the focus to a control by mouse or keyboard.
Arrival arrive(Control& control);

/// What a click does once the focus is where it went: runs a button or menu entry, selects an option, toggles
/// a check box. Nothing if the control is disabled or not visible.
void activate(Control& control);

/// A click with the mouse: a control that can take the focus takes it first; if the control left keeps it,
/// the click does not happen.
Arrival click(Control& control);

/// Replaces the text of a box as by typing over the selected whole, once the focus is there.
Arrival type(TextBox& box, std::string_view text);

/// Whether something can be done in a list or grid now that the focus has gone there.
bool isAtHand(const Control& control, Arrival arrival);

/// Picks the item at a position of a list (from 0) once the focus is there; error 9 where there is no such
/// item.
Arrival pick(ItemList& list, int index);
/// Picks any folder by its full path, in the same way. Nothing if there is no such folder.
Arrival pickFolder(FolderList& list, const std::string& path);

/// Opens or closes the folder in a row of the tree (from 0) once the focus is there, which picks nothing;
/// error 9 where there is no such row.
Arrival toggleFolder(FolderList& list, int row);

/// Makes a row of a grid (from 1) the current one once the focus is there; error 9 where there is no such
/// row.
Arrival selectRow(Grid& grid, int row);

/// Moves the focus on, or back, in the tab order.
Arrival tab(Screen& screen, bool backwards = false);

/// What pressing a key has come to.
struct Press {
    bool used = false;  // false: the key means nothing to the screen, and a display may do with it as usual
    Arrival arrival = Arrival::Arrived;
    Control* target = nullptr;  // the control that the key was to reach
};

/// A key or shortcut pressed on a screen: Alt letters, shortcuts of the menu, Tab, Return, Escape, Space, and
/// the arrow keys among options and check boxes, and what moves in lists and grids: a list picks what a key
/// or a letter moves to, a folder list moves its cursor, opens and closes with Right and Left, and picks with
/// Space. Characters typed into a text box are not used by it.
Press press(Screen& screen, const Key& key);

/// A key pressed with the focus in a text box, for displays whose toolkit does not edit texts itself: a
/// character, Backspace or Delete, which work on all of the text if it is selected, else at the caret, and
/// Left, Right, Home and End. False if it is no such key.
bool typeKey(TextBox& box, const Key& key);

/// The title bar's close.
void close(Screen& screen);

}  // namespace tallybrook::person
