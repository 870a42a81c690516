#pragma once

#include "SameText.h"
#include "SourceFolder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace tallybrook::test {

/// Compares byte for byte with what is written down in a file below tests/. With TALLYBROOK_WRITE_EXPECTED it
/// is written anew first, after a wanted change.
inline testing::AssertionResult isAsWrittenDown(const std::string& actual, const std::string& name) {
    const std::filesystem::path file = std::filesystem::path(TALLYBROOK_SOURCE_DIR) / "tests" / name;
    if (std::getenv("TALLYBROOK_WRITE_EXPECTED") != nullptr)
        std::ofstream(file, std::ios::binary) << actual;
    return isSameText(actual, bytesOf(file));
}

}  // namespace tallybrook::test
