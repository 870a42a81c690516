#include "bowling/FrameWords.h"

#include "bowling/Marks.h"

#include <optional>

namespace tallybrook {

std::string inWords(std::string_view cell) {
    constexpr std::size_t kMostMarks = 3;
    std::string words;
    const auto add = [&words](const std::string& part) { words += (words.empty() ? "" : ", ") + part; };
    std::optional<int> fallen;  // by the first ball at a rack, whose second one has not been seen
    for (std::size_t number = 1; number <= cell.size(); ++number) {
        const std::string_view mark = markOf(cell, number);
        if (isMark(mark)) {
            add(isStrike(mark) ? "Strike" : "Spare");
            fallen.reset();
        } else if (isCount(mark) && fallen) {
            add(std::to_string(*fallen + countOf(mark)));
            fallen.reset();
        } else if (isCount(mark)) {
            fallen = countOf(mark);
        }
    }
    if (fallen)
        add(std::to_string(*fallen) + (cell.size() < kMostMarks ? " so far" : ""));
    return words;
}

}  // namespace tallybrook
