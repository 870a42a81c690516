#pragma once

#include "controls/Display.h"

#include <string>

namespace tallybrook {

class Program;

/// Lets the user choose a report and opens it in the viewer; asks again where nothing was chosen, until the
/// user gives up. The dialog offers the file chosen last. Other failures are told in the box of `module`, as
/// in "Reports, mnuOpen.".
void openReport(Program& program, FileDialog& dialog, const std::string& module);

}  // namespace tallybrook
