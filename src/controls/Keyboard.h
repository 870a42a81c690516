#pragma once

#include "controls/Control.h"
#include "controls/Screen.h"

#include <string>
#include <string_view>

// What keys do on a screen, whatever display they are pressed on.
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

/// The control that Alt with a letter reaches now: by its own caption, by the label that names it, or by the
/// caption of the group that it is the first of; of several the next one after the focus, the titles of the
/// menus coming last. nullptr if there is none, if the letter is that of a menu alone, which a display opens
/// as usual, or if the key is no such key.
Control* reachedBy(const Screen& screen, const Key& key);

/// The key that does what a menu entry does: its shortcut, or Alt with the letter of the button that it runs,
/// where that letter reaches nothing else on the screen; empty if there is none.
std::string keysOf(const Menu& entry);

/// Moves the focus on, or back, in the tab order.
Arrival tab(Screen& screen, bool backwards = false);

/// What pressing a key has come to.
struct Press {
    bool used = false;  // false: the key means nothing to the screen, and a display may do with it as usual
    Arrival arrival = Arrival::Arrived;
    Control* target = nullptr;  // the control that the key was to reach
};

/// A key or shortcut pressed on a screen: Alt letters (where the target is a menu, a display opens it),
/// shortcuts of the menu, Tab, Return, Escape, Space, and the arrow keys among options and check boxes, and
/// what moves in lists and grids: a list picks what a key or a letter moves to, a folder list moves its
/// cursor, opens and closes with Right and Left, and picks with Space. Characters typed into a text box are
/// not used by it.
Press press(Screen& screen, const Key& key);

}  // namespace tallybrook::person
