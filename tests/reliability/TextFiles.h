#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace tallybrook::test {

/// The text files of a data folder by their names below it; its own path in them is "<data>". Of the backups
/// just the names.
using TextFiles = std::map<std::string, std::string>;

TextFiles textFilesOf(const std::filesystem::path& data);

/// Whether nothing is lost of what stood in the files `before`: each is there as it was, has been added to,
/// or is as it was to be `after`.
bool isNothingLost(const TextFiles& files, const TextFiles& before, const TextFiles& after);

}  // namespace tallybrook::test
