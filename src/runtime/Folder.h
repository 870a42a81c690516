#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tallybrook {

/// The names of all that is in a folder, in any order; none where the folder cannot be read.
std::vector<std::string> namesIn(const std::filesystem::path& folder);

}  // namespace tallybrook
