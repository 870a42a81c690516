#pragma once

#include <string>

namespace tallybrook {

/// Where the file dialogs of the reports start: the folder "Reports" in the process's current folder, with a
/// separator at its end.
std::string reportsFolder();

}  // namespace tallybrook
