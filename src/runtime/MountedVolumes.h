#pragma once

#include <string>
#include <vector>

namespace tallybrook {

/// The places where the machine's volumes begin, the root first: what lies on a device or a server.
std::vector<std::string> mountedVolumes();

}  // namespace tallybrook
