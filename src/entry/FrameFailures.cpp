#include "entry/FrameFailures.h"

#include "controls/Screen.h"
#include "runtime/EndProgram.h"
#include "shell/TBK_Globals.h"

namespace tallybrook {

namespace {

MessageBox noCurrentRowBox(const std::string& debugName) {
    return {.text = lines({"New record could not be added or updated.",
                           "This could be due to timing. Click Retry to attempt to add the record again.",
                           "Click Cancel to return to the previous screen.",
                           "Debug Information: Module - Frame Information, " + debugName}),
            .title = "Database Error",
            .buttons = Buttons::RetryCancel};
}

void loadAnew(Screens& screens, Screen& screen) {
    const std::string name = screen.name();
    screens.unload(screen);
    screens.load(name);
    screens.show(*screens.find(name));
}

Recovery offerRetryOfLoading(Program& program, Screen& screen, const RunTimeError& failure) {
    program.display.messageBox({.text = lines({"Error Number: " + std::to_string(failure.number()),
                                               "Error: " + failure.description()})});
    if (program.display.messageBox(noCurrentRowBox("Form Load")) == Answer::Retry)
        return Recovery::TryAgain;
    program.screens.goBackFrom(screen);
    throw EndHandler{};
}

}  // namespace

Handler frameHandler(Program& program, Screen& screen, const std::string& procedure,
                     const std::string& debugName) {
    return Handler([=, &program, &screen](const RunTimeError& failure, int) {
        if (failure.number() != error::kNoCurrentRow) {
            program.reporter.databaseError(failure, "Frame Information, " + procedure + ".");
            return Recovery::GoOn;
        }
        if (program.display.messageBox(noCurrentRowBox(debugName)) == Answer::Retry)
            loadAnew(program.screens, screen);
        else
            program.screens.goBackFrom(screen);
        throw EndHandler{};
    });
}

Handler loadingHandler(Program& program, Screen& screen) {
    return Handler([&program, &screen](const RunTimeError& failure, int) {
        if (failure.number() == error::kNoCurrentRow)
            return offerRetryOfLoading(program, screen, failure);
        program.reporter.databaseError(failure, "Frame Information, Form Load.");
        return Recovery::GoOn;
    });
}

}  // namespace tallybrook
