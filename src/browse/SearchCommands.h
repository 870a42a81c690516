#pragma once

#include "browse/SearchForm.h"
#include "controls/Screen.h"

namespace tallybrook {

/// The buttons and menus of a search screen.
class SearchCommands {
public:
    /// `screen` and `form` must outlive it.
    SearchCommands(Program& program, Screen& screen, SearchForm& form);

private:
    Program& program_;
    Screen& screen_;
    SearchForm& form_;

public:
    Button cmdSearch{screen_, "cmdSearch", "&Begin Search", {.tip = "Click here to start your search"}};
    Button cmdReset{screen_, "cmdReset", "&Reset Form", {.tip = "Click here to reset the form"}};
    Button cmdPrevious{screen_, "cmdPrevious", "&Previous Screen"};
    Button cmdRetMain{screen_, "cmdRetMain", "Return to &Main"};
    Button cmdExit{screen_, "cmdExit", "E&xit"};

    Menu mnuFile{screen_, "mnuFile", "&File"};
    Menu mnuExit{mnuFile, "mnuExit", "E&xit", cmdExit};
    Menu mnuCommands{screen_, "mnuCommands", "&Commands"};
    Menu mnuStartSearch{mnuCommands, "mnuStartSearch", "&Begin Search", cmdSearch};
    Menu mnuSearchReset{mnuCommands, "mnuSearchReset", "&Reset Form", cmdReset};
    Menu mnuPrevious{mnuCommands, "mnuPrevious", "&Previous Screen", cmdPrevious};
    Menu mnuRetMain{mnuCommands, "mnuRetMain", "Return to &Main", cmdRetMain};
    Menu mnuHelp{screen_, "mnuHelp", "&Help"};
    Menu mnuTBKHelp{mnuHelp, "mnuTBKHelp", "Tallybrook Help", "F1"};
    Menu mnuHelpAbout{mnuHelp, "mnuHelpAbout", "&About"};

    [[nodiscard]] Layout layout();

private:
    void cmdReset_Click();
    void cmdPrevious_Click();
    void cmdRetMain_Click();
};

}  // namespace tallybrook
