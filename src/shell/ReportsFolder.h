#pragma once

#include <string>

namespace tallybrook {

/// Where the file dialogs of the reports start: the folder "Reports" in the process's current folder, whether
/// there is one or not.
std::string reportsFolder();

}  // namespace tallybrook
