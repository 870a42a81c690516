#include "shell/ProgramScreen.h"

#include <utility>

namespace tallybrook {

ProgramScreen::ProgramScreen(Program& program, std::string name, std::string caption)
    : Screen(program.screens, std::move(name), std::move(caption)), program_(program) {}

Handler ProgramScreen::handler(std::string module, Retry retry) {
    return {reporter_, std::move(module), retry};
}

void ProgramScreen::Reporter::databaseError(const RunTimeError& failure, std::string_view module) {
    screen_.program_.reporter.databaseError(failure, module);
}

void ProgramScreen::Reporter::retrying(std::string_view module, int tries) {
    screen_.program_.waiting = &screen_;
    screen_.program_.reporter.retrying(module, tries);
}

}  // namespace tallybrook
