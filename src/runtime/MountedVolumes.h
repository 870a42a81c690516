#pragma once

#include <istream>
#include <string>
#include <vector>

namespace tallybrook {

/// The places where the machine's volumes begin, the root first: what lies on a device or a server.
std::vector<std::string> mountedVolumes();
/// Those of a table like the system's own: a line for each volume, of its device, its place with octal
/// escapes, and more.
std::vector<std::string> volumesIn(std::istream& table);

}  // namespace tallybrook
