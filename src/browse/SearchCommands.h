#pragma once

#include "browse/SearchForm.h"
#include "controls/Screen.h"
#include "shell/StandardCommands.h"

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
    PreviousButton cmdPrevious{program_, screen_, {.tip = ""}};
    MainButton cmdRetMain{program_, screen_, {.name = "cmdRetMain", .caption = "Return to &Main", .tip = ""}};
    ExitButton cmdExit{program_, screen_, {.tip = ""}};

    FileMenu mnuFile{screen_, cmdExit};
    Menu mnuCommands{screen_, "mnuCommands", "&Commands"};
    Menu mnuStartSearch{mnuCommands, "mnuStartSearch", cmdSearch};
    Menu mnuSearchReset{mnuCommands, "mnuSearchReset", cmdReset};
    Menu mnuPrevious{mnuCommands, "mnuPrevious", cmdPrevious};
    Menu mnuRetMain{mnuCommands, "mnuRetMain", cmdRetMain};
    HelpMenu mnuHelp{program_, screen_, {.aboutName = "mnuHelpAbout"}};

    [[nodiscard]] Layout layout();

private:
    void cmdReset_Click();
    void cmdPrevious_Click();
    void cmdRetMain_Click();
};

}  // namespace tallybrook
