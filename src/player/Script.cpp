#include "player/Script.h"

#include "player/PlayStopped.h"

#include <string_view>

namespace tallybrook {

namespace {

bool isPassedOver(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    return first == std::string_view::npos || text[first] == '#';
}

void dropByteOrderMark(std::string& text) {
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    if (text.starts_with(kMark))
        text.erase(0, kMark.size());
}

}  // namespace

void ScriptLine::fail(const std::string& message) const {
    stopAt(number, message);
}

std::optional<ScriptLine> Script::next() {
    for (std::string text; std::getline(in_, text);) {
        if (++read_ == 1)
            dropByteOrderMark(text);
        if (text.ends_with('\r'))
            text.pop_back();
        if (isPassedOver(text))
            continue;
        lastCommand_ = read_;
        try {
            return ScriptLine{.number = read_, .text = text, .words = readWords(text)};
        } catch (const UnreadableWords& unreadable) {
            stopAt(read_, unreadable.what());
        }
    }
    return std::nullopt;
}

}  // namespace tallybrook
