#include "browse/SearchCommands.h"

#include "shell/TBK_Globals.h"

namespace tallybrook {

SearchCommands::SearchCommands(Program& program, Screen& screen, SearchForm& form)
    : program_(program), screen_(screen), form_(form) {
    screen.setPrimary(cmdSearch);
    cmdSearch.onClick = [this] { form_.run(); };
    cmdReset.onClick = [this] { cmdReset_Click(); };
    cmdPrevious.onClick = [this] { cmdPrevious_Click(); };
    cmdRetMain.onClick = [this] { cmdRetMain_Click(); };
}

Layout SearchCommands::layout() {
    return layout::buttons({cmdSearch, cmdReset, cmdPrevious, cmdRetMain, layout::space(), cmdExit});
}

void SearchCommands::cmdReset_Click() {
    if (program_.display.messageBox(
            question("Are you sure you want to reset the form?", "Reset Form", Icon::None)) == Answer::Yes)
        form_.reset();
}

void SearchCommands::cmdPrevious_Click() {
    if (program_.display.messageBox(question("Return to previous screen?", "Previous Screen", Icon::None)) ==
        Answer::Yes)
        program_.screens.goBackFrom(screen_);
}

void SearchCommands::cmdRetMain_Click() {
    if (program_.display.messageBox(question("Are you sure you want to return to the main screen?",
                                             "Return to Main", Icon::None)) == Answer::Yes)
        returnToMain(program_);
}

}  // namespace tallybrook
