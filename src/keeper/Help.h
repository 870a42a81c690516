#pragma once

#include <string>

namespace tallybrook::keeper {

/// What --help writes.
std::string helpText();

}  // namespace tallybrook::keeper
