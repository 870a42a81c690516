#include "runtime/TextCompare.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include <utf8proc.h>

namespace tallybrook {

namespace {

/// Takes the first character off the text. A byte that is no UTF-8 becomes a code point of its own, beyond
/// all real ones.
utf8proc_int32_t takeCharacter(std::string_view& text) {
    constexpr utf8proc_int32_t kBeyondUnicode = 0x110000;
    utf8proc_int32_t codePoint = 0;
    const auto* const bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
    const utf8proc_ssize_t taken =
        utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size()), &codePoint);
    if (taken <= 0) {
        codePoint = kBeyondUnicode + bytes[0];
        text.remove_prefix(1);
    } else {
        text.remove_prefix(static_cast<std::size_t>(taken));
    }
    return codePoint;
}

/// The folded code points of a text.
std::vector<utf8proc_int32_t> folded(std::string_view text) {
    std::vector<utf8proc_int32_t> codePoints;
    codePoints.reserve(text.size());
    while (!text.empty()) {
        const utf8proc_int32_t codePoint = takeCharacter(text);
        constexpr std::size_t kLongestFolding = 4;
        utf8proc_int32_t buffer[kLongestFolding];
        int boundClass = 0;
        const utf8proc_ssize_t written =
            utf8proc_decompose_char(codePoint, buffer, kLongestFolding, UTF8PROC_CASEFOLD, &boundClass);
        if (written > 0 && written <= static_cast<utf8proc_ssize_t>(kLongestFolding))
            codePoints.insert(codePoints.end(), buffer, buffer + written);
        else
            codePoints.push_back(codePoint);
    }
    return codePoints;
}

}  // namespace

std::string foldCase(std::string_view text) {
    constexpr utf8proc_int32_t kLastCodePoint = 0x10FFFF;
    std::string bytes;
    for (const utf8proc_int32_t codePoint : folded(text)) {
        if (codePoint > kLastCodePoint) {
            bytes += static_cast<char>(codePoint - kLastCodePoint - 1);
            continue;
        }
        utf8proc_uint8_t encoded[4];
        const auto length = static_cast<std::size_t>(utf8proc_encode_char(codePoint, encoded));
        bytes.append(reinterpret_cast<const char*>(encoded), length);
    }
    return bytes;
}

int compareText(std::string_view a, std::string_view b) {
    const auto left = folded(a);
    const auto right = folded(b);
    const auto order =
        std::lexicographical_compare_three_way(left.begin(), left.end(), right.begin(), right.end());
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

bool likeText(std::string_view text, std::string_view pattern) {
    const auto letters = folded(text);
    const auto wanted = folded(pattern);
    std::size_t at = 0;
    std::size_t in = 0;
    std::size_t lastRun = wanted.size();  // where the last "%" stands, and how far it reaches by now
    std::size_t runEnd = 0;
    while (at < letters.size()) {
        if (in < wanted.size() && wanted[in] == '%') {
            lastRun = in++;
            runEnd = at;
        } else if (in < wanted.size() && (wanted[in] == '_' || wanted[in] == letters[at])) {
            ++in;
            ++at;
        } else if (lastRun != wanted.size()) {
            in = lastRun + 1;
            at = ++runEnd;
        } else {
            return false;
        }
    }
    while (in < wanted.size() && wanted[in] == '%')
        ++in;
    return in == wanted.size();
}

std::size_t characterCount(std::string_view text) {
    std::size_t count = 0;
    for (; !text.empty(); ++count)
        takeCharacter(text);
    return count;
}

std::string_view firstCharacters(std::string_view text, std::size_t count) {
    std::string_view rest = text;
    for (; count > 0 && !rest.empty(); --count)
        takeCharacter(rest);
    return text.substr(0, text.size() - rest.size());
}

}  // namespace tallybrook
