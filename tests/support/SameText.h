#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace tallybrook::test {

/// The bytes of a file.
inline std::string bytesOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    EXPECT_TRUE(stream) << file << " cannot be read";
    return (std::ostringstream() << stream.rdbuf()).str();
}

/// The lines as the program writes them.
inline std::string withLineEnds(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + "\r\n";
    return text;
}

/// Compares byte for byte, and shows the first line that differs.
inline testing::AssertionResult isSameText(std::string_view actual, std::string_view expected) {
    if (actual == expected)
        return testing::AssertionSuccess();
    std::size_t at = 0;
    while (at < actual.size() && at < expected.size() && actual[at] == expected[at])
        ++at;
    const auto line = 1 + std::count(actual.begin(), actual.begin() + static_cast<std::ptrdiff_t>(at), '\n');
    const auto lineAround = [at](std::string_view text) {
        const std::size_t begin = at == 0 ? 0 : text.rfind('\n', at - 1) + 1;
        return testing::PrintToString(std::string(text.substr(begin, text.find('\n', at) - begin)));
    };
    return testing::AssertionFailure() << "line " << line << " is " << lineAround(actual) << ", expected "
                                       << lineAround(expected) << "\nthe whole text:\n"
                                       << actual;
}

}  // namespace tallybrook::test
