#pragma once

#include "controls/Display.h"
#include "controls/Grid.h"
#include "controls/Lists.h"
#include "controls/Screen.h"
#include "shell/Program.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <variant>

namespace tallybrook {

/// What an input box is to be answered with; nothing cancels it.
struct Reply {
    std::optional<std::string> text;
};

/// What a file dialog is to be answered with; nothing cancels it.
struct Choice {
    std::optional<std::filesystem::path> file;
};

/// The answer to the box, input box or dialog that comes up next.
using Planned = std::variant<Answer, Reply, Choice>;

/// Where a play takes place: a display, and the hands of the person in front of it. What the hands do runs to
/// its end, with all its boxes, before they return; an exception that leaves the program leaves them too.
class Stage {
public:
    virtual ~Stage() = default;

    /// The stage's own display.
    virtual Display& display() = 0;
    /// Tells which program is played; before anything else is done with the hands.
    virtual void attach(Program& program) = 0;
    /// Gives the answer in advance; the display finds it when it is asked.
    virtual void plan(Planned answer) = 0;

    virtual Arrival click(Control& control) = 0;
    virtual Arrival type(TextBox& box, const std::string& text) = 0;
    virtual Arrival focus(Control& control) = 0;
    // What is chosen is asked for once the focus is there, since the control left may have changed it.
    /// Picks an item of a list that is no folder list, by its position from 0.
    virtual Arrival pick(ItemList& list, const std::function<int()>& index) = 0;
    /// Picks a folder that there is, by its full path.
    virtual Arrival pickFolder(FolderList& list, const std::function<std::string()>& path) = 0;
    /// Makes a row of a grid (from 1) the current one.
    virtual Arrival selectRow(Grid& grid, const std::function<int()>& row) = 0;
    virtual Arrival tab(Screen& screen, bool backwards) = 0;
    /// Presses a key, as in "Alt+N"; one that isKey() knows.
    virtual Arrival press(Screen& screen, const std::string& key) = 0;
    virtual void close(Screen& screen) = 0;

    /// Takes a picture of the screen.
    virtual void takePicture(Screen& screen, const std::string& name) = 0;
    /// Takes a picture of a report as the viewer shows it.
    virtual void takeReportPicture(const std::filesystem::path& report, const std::string& name) = 0;
};

}  // namespace tallybrook
