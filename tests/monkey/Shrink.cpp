#include "monkey/Shrink.h"

#include <algorithm>

namespace tallybrook::test {

namespace {

using Lines = std::vector<std::string>;

bool isAnswer(const std::string& line) {
    return line.starts_with("answer ") || line.starts_with("reply ") || line.starts_with("choose ");
}

/// The lines, each with the answers that follow it.
std::vector<Lines> steps(const Lines& script) {
    std::vector<Lines> steps;
    for (const std::string& line : script) {
        if (steps.empty() || !isAnswer(line))
            steps.emplace_back();
        steps.back().push_back(line);
    }
    return steps;
}

Lines joined(const std::vector<Lines>& steps) {
    Lines script;
    for (const Lines& step : steps)
        script.insert(script.end(), step.begin(), step.end());
    return script;
}

std::vector<Lines> without(std::vector<Lines> steps, std::size_t first, std::size_t count) {
    const auto begin = steps.begin() + static_cast<std::ptrdiff_t>(first);
    steps.erase(begin, begin + static_cast<std::ptrdiff_t>(std::min(count, steps.size() - first)));
    return steps;
}

}  // namespace

Lines shrink(const Lines& script, const std::function<bool(const Lines&)>& stillFails) {
    std::vector<Lines> left = steps(script);
    for (std::size_t count = std::max<std::size_t>(left.size() / 2, 1); count > 0; count /= 2) {
        for (std::size_t first = 0; first < left.size();) {
            const std::vector<Lines> fewer = without(left, first, count);
            if (stillFails(joined(fewer)))
                left = fewer;
            else
                first += count;
        }
    }
    return joined(left);
}

}  // namespace tallybrook::test
