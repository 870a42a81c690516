#include "browse/ListLeaving.h"

#include "shell/Program.h"
#include "shell/TBK_Globals.h"

namespace tallybrook {

void leaveToPrevious(Program& program, Screen& list) {
    if (program.display.messageBox(
            question("Return to previous screen?", "Return - Previous Screen", Icon::None)) == Answer::Yes)
        program.screens.goBackFrom(list);
}

void leaveToMain(Program& program, Screen& list) {
    if (program.display.messageBox(question("Return to main menu?", "Return - Main Menu", Icon::None)) !=
        Answer::Yes)
        return;
    program.screens.unload(list);
    returnToMain(program);
}

}  // namespace tallybrook
