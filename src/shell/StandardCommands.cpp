#include "shell/StandardCommands.h"

#include "shell/Program.h"
#include "shell/TBK_Globals.h"

namespace tallybrook {

PreviousButton::PreviousButton(Program& program, Screen& screen, const PreviousButtonOptions& options)
    : Button(screen, "cmdPrevious", options.caption, {.tip = options.tip}) {
    onClick = [&program, &screen] {
        if (program.display.messageBox(question("Return to previous screen?", "Previous Screen")) ==
            Answer::Yes)
            program.screens.goBackFrom(screen);
    };
}

MainButton::MainButton(Program& program, Screen& screen, const MainButtonOptions& options)
    : Button(screen, options.name, options.caption, {.tip = options.tip}) {
    onClick = [&program] {
        if (Main_Confirm(program) == Answer::Yes)
            returnToMain(program);
    };
}

ExitButton::ExitButton(Program& program, Screen& screen, const ExitButtonOptions& options)
    : Button(screen, "cmdExit", options.caption, {.tip = options.tip}) {
    onClick = [&program] { Exit_Confirm(program); };
}

FileMenu::FileMenu(Screen& screen, const Button& exit)
    : Menu(screen, "mnuFile", "&File"), mnuExit(*this, "mnuExit", exit) {}

HelpMenu::HelpMenu(Program& program, Screen& screen, const HelpMenuOptions& options)
    : Menu(screen, options.name, "&Help"),
      mnuTBKHelp(*this, "mnuTBKHelp", "Tallybrook Help", "F1"),
      mnuAbout(*this, options.aboutName, options.aboutCaption) {
    mnuTBKHelp.onClick = [&program] { program.display.help(HelpTopic::Contents); };
    mnuAbout.onClick = [&program] { showAbout(program); };
}

}  // namespace tallybrook
