#pragma once

#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace tallybrook::test {

/// Whether this is a long run (scripts/soak).
inline bool isLongRun() {
    return std::getenv("TALLYBROOK_ROUNDS") != nullptr;
}

/// The marks of a score sheet. A long run has all of them; an ordinary one has those that the
/// rules tell apart, with a count that makes ten and one that does not.
inline std::string_view marksOfThisRun() {
    return isLongRun() ? "0123456789X/-" : "0459X/-";
}

/// Every text of these characters that is no longer than that, the empty one first.
inline std::vector<std::string> everyText(std::string_view characters, std::size_t longest) {
    std::vector<std::string> texts{""};
    for (std::size_t begin = 0, length = 1; length <= longest; ++length) {
        const std::size_t end = texts.size();
        for (; begin < end; ++begin) {
            for (const char character : characters)
                texts.push_back(texts[begin] + character);
        }
    }
    return texts;
}

}  // namespace tallybrook::test
