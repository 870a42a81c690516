#pragma once

#include <functional>
#include <string>
#include <vector>

namespace tallybrook::test {

/// Cuts a script down, as long as `stillFails` says of what is left that it fails in the same way. A line
/// goes together with the answers to its boxes.
std::vector<std::string> shrink(const std::vector<std::string>& script,
                                const std::function<bool(const std::vector<std::string>&)>& stillFails);

}  // namespace tallybrook::test
