#include "browse/NoCurrentRow.h"

#include "runtime/EndProgram.h"
#include "shell/Program.h"
#include "shell/TBK_Globals.h"

namespace tallybrook {

std::string debugInformation(std::string_view module) {
    return "Debug Information: Module - " + std::string(module);
}

void leaveWithoutRecord(Program& program, Screen& screen, std::string_view module) {
    program.display.messageBox(
        {.text = lines({"Record could not be retrieved.", "This could be due to timing.",
                        "Click OK to return to the previous screen.", debugInformation(module)}),
         .title = "Database Error"});
    program.screens.goBackFrom(screen);
    throw EndHandler{};
}

}  // namespace tallybrook
