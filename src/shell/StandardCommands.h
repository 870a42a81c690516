#pragma once

#include "controls/Control.h"

#include <string>

// The commands that most screens have, with what they usually do. A screen that does more at one of them sets
// a click of its own.
namespace tallybrook {

class Program;

struct PreviousButtonOptions {
    std::string caption = "&Previous Screen";
    std::string tip = "Return to the previous screen";
};

/// Asks, and on Yes goes back to the last loaded screen.
class PreviousButton : public Button {
public:
    PreviousButton(Program& program, Screen& screen, const PreviousButtonOptions& options = {});
};

struct MainButtonOptions {
    std::string name = "cmdMain";
    std::string caption = "&Main Menu";
    std::string tip = "Return to the main menu";
};

/// Asks, and on Yes returns to the main menu.
class MainButton : public Button {
public:
    MainButton(Program& program, Screen& screen, const MainButtonOptions& options = {});
};

struct ExitButtonOptions {
    std::string caption = "E&xit";
    std::string tip = "Exit Tallybrook";
};

/// Asks, and on Yes ends the program.
class ExitButton : public Button {
public:
    ExitButton(Program& program, Screen& screen, const ExitButtonOptions& options = {});
};

/// The file menu of a screen that has no files: its only entry runs the button Exit.
class FileMenu : public Menu {
public:
    FileMenu(Screen& screen, const Button& exit);

    Menu mnuExit;
};

struct HelpMenuOptions {
    std::string name = "mnuHelp";
    std::string aboutName = "mnuAbout";
    std::string aboutCaption = "&About";
};

/// The menu that opens the help and the about box.
class HelpMenu : public Menu {
public:
    HelpMenu(Program& program, Screen& screen, const HelpMenuOptions& options = {});

    Menu mnuTBKHelp;
    Menu mnuAbout;
};

}  // namespace tallybrook
