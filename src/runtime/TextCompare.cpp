#include "runtime/TextCompare.h"

#include "runtime/Ascii.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include <utf8proc.h>

namespace tallybrook {

namespace {

constexpr utf8proc_int32_t kEndOfAscii = 0x80;

/// Takes the first character off the text. A byte that is no UTF-8 becomes a code point of its own, beyond
/// all real ones.
utf8proc_int32_t takeCharacter(std::string_view& text) {
    constexpr utf8proc_int32_t kBeyondUnicode = 0x110000;
    if (isAscii(text.front())) {
        const char character = text.front();
        text.remove_prefix(1);
        return character;
    }
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

/// Puts the character back as it was taken.
void appendCharacter(std::string& text, utf8proc_int32_t codePoint) {
    constexpr utf8proc_int32_t kLastCodePoint = 0x10FFFF;
    if (codePoint > kLastCodePoint) {
        text += static_cast<char>(codePoint - kLastCodePoint - 1);
        return;
    }
    utf8proc_uint8_t encoded[4];
    const auto length = static_cast<std::size_t>(utf8proc_encode_char(codePoint, encoded));
    text.append(reinterpret_cast<const char*>(encoded), length);
}

/// Whether keys write such a character.
bool isWritten(utf8proc_int32_t codePoint) {
    switch (utf8proc_category(codePoint)) {  // of what is beyond all real ones: no character
        case UTF8PROC_CATEGORY_CC:
        case UTF8PROC_CATEGORY_CN:
        case UTF8PROC_CATEGORY_CS:
        case UTF8PROC_CATEGORY_ZL:
        case UTF8PROC_CATEGORY_ZP:
            return false;
        default:
            return true;
    }
}

/// The folded code points of a text.
std::vector<utf8proc_int32_t> folded(std::string_view text) {
    std::vector<utf8proc_int32_t> codePoints;
    codePoints.reserve(text.size());
    while (!text.empty()) {
        const utf8proc_int32_t codePoint = takeCharacter(text);
        if (codePoint < kEndOfAscii) {
            codePoints.push_back(toLower(static_cast<char>(codePoint)));
            continue;
        }
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
    std::string bytes;
    for (const utf8proc_int32_t codePoint : folded(text))
        appendCharacter(bytes, codePoint);
    return bytes;
}

std::string upperCase(std::string_view text) {
    std::string capitals;
    while (!text.empty())
        appendCharacter(capitals, utf8proc_toupper(takeCharacter(text)));
    return capitals;
}

int compareText(std::string_view a, std::string_view b) {
    while (!a.empty() && !b.empty() && isAscii(a.front()) && isAscii(b.front())) {
        const char left = toLower(a.front());
        const char right = toLower(b.front());
        if (left != right)
            return left < right ? -1 : 1;
        a.remove_prefix(1);
        b.remove_prefix(1);
    }
    if (a == b)
        return 0;
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

std::string asWritten(std::string_view text, std::string_view kept) {
    std::string written;
    while (!text.empty()) {
        const std::string_view rest = text;
        const utf8proc_int32_t codePoint = takeCharacter(text);
        const std::string_view character = rest.substr(0, rest.size() - text.size());
        if (isWritten(codePoint) || kept.find(character) != std::string_view::npos)
            written += character;
    }
    return written;
}

std::string_view firstCharacters(std::string_view text, std::size_t count) {
    std::string_view rest = text;
    for (; count > 0 && !rest.empty(); --count)
        takeCharacter(rest);
    return text.substr(0, text.size() - rest.size());
}

}  // namespace tallybrook
