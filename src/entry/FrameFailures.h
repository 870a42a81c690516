#pragma once

#include "runtime/Handler.h"
#include "shell/Program.h"

#include <string>

// How the frame screen takes failures: where there is no current row it asks whether to begin anew or to go
// back.
namespace tallybrook {

/// The handler of a procedure: on Retry the screen is unloaded and loaded anew, on Cancel it goes back, and
/// either way the running procedures end (EndHandler). Other failures have the general box.
Handler frameHandler(Program& program, Screen& screen, const std::string& procedure,
                     const std::string& debugName);

/// The handler of the screen's loading: on Retry the statement is tried again.
Handler loadingHandler(Program& program, Screen& screen);

}  // namespace tallybrook
