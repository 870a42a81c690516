#include "runtime/TextEncoding.h"

#include "runtime/Ascii.h"

#include <algorithm>
#include <array>

#include <utf8proc.h>

namespace tallybrook {

namespace {

/// What the bytes 0x80 to 0x9F stand for; the five that stand for nothing keep their number.
constexpr std::array<utf8proc_int32_t, 32> kWindows1252{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr utf8proc_int32_t kFirstOwn = 0x80;
constexpr utf8proc_int32_t kLastOwn = 0x9F;

/// Takes the first code point off valid or invalid UTF-8; -1 for a byte that is none.
utf8proc_int32_t takeCodePoint(std::string_view& text) {
    if (const char first = text.front(); isAscii(first)) {
        text.remove_prefix(1);
        return first;
    }
    utf8proc_int32_t codePoint = -1;
    const utf8proc_ssize_t taken = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                                    static_cast<utf8proc_ssize_t>(text.size()), &codePoint);
    text.remove_prefix(taken > 0 ? static_cast<std::size_t>(taken) : 1);
    return taken > 0 ? codePoint : -1;
}

void append(std::string& text, utf8proc_int32_t codePoint) {
    if (codePoint >= 0 && codePoint < kFirstOwn) {
        text += static_cast<char>(codePoint);
        return;
    }
    std::array<utf8proc_uint8_t, 4> bytes{};
    const auto length = static_cast<std::size_t>(utf8proc_encode_char(codePoint, bytes.data()));
    text.append(reinterpret_cast<const char*>(bytes.data()), length);
}

utf8proc_int32_t codePointOf(char byte) {
    const utf8proc_int32_t number = static_cast<unsigned char>(byte);
    return number < kFirstOwn || number > kLastOwn
               ? number
               : kWindows1252[static_cast<std::size_t>(number - kFirstOwn)];
}

char byteOf(utf8proc_int32_t codePoint) {
    if ((codePoint >= 0 && codePoint < kFirstOwn) || (codePoint > kLastOwn && codePoint <= 0xFF))
        return static_cast<char>(codePoint);
    const auto* const found = std::ranges::find(kWindows1252, codePoint);
    return found == kWindows1252.end() ? '?' : static_cast<char>(kFirstOwn + (found - kWindows1252.begin()));
}

}  // namespace

Encoding encodingOf(std::string_view bytes) {
    while (!bytes.empty()) {
        if (takeCodePoint(bytes) < 0)
            return Encoding::Windows1252;
    }
    return Encoding::Utf8;
}

std::string decoded(std::string_view bytes, Encoding encoding) {
    if (encoding == Encoding::Utf8)
        return std::string(bytes);
    std::string text;
    for (const char byte : bytes)
        append(text, codePointOf(byte));
    return text;
}

std::string encoded(std::string_view text, Encoding encoding) {
    if (encoding == Encoding::Utf8)
        return std::string(text);
    std::string bytes;
    while (!text.empty())
        bytes += byteOf(takeCodePoint(text));
    return bytes;
}

std::u32string charactersOf(std::string_view text) {
    constexpr char32_t kReplacement = 0xFFFD;
    std::u32string characters;
    characters.reserve(text.size());
    while (!text.empty()) {
        const utf8proc_int32_t codePoint = takeCodePoint(text);
        characters += codePoint < 0 ? kReplacement : static_cast<char32_t>(codePoint);
    }
    return characters;
}

std::string textOf(std::u32string_view characters) {
    std::string text;
    text.reserve(characters.size());
    for (const char32_t character : characters)
        append(text, static_cast<utf8proc_int32_t>(character));
    return text;
}

}  // namespace tallybrook
