#pragma once

#include <string>

namespace tallybrook {

/// The terms of use, as the project's LICENSE has them; their lines are joined as those of a box.
std::string termsOfUse();

}  // namespace tallybrook
