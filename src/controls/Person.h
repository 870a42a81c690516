#pragma once

#include "controls/Grid.h"
#include "controls/Lists.h"
#include "controls/Screen.h"

#include <string>
#include <string_view>

// What a person does on a screen, with mouse and keyboard, in the program's own terms. Every display passes
// what it sees its user do to these functions, inside Program::perform(), and so behaves alike.
namespace tallybrook::person {

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

/// Gives a box the text that it is to have, as by typing in it once the focus is there.
Arrival edit(TextBox& box, std::string_view text);

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

/// The title bar's close.
void close(Screen& screen);

}  // namespace tallybrook::person
