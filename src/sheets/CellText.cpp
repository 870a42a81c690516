#include "sheets/CellText.h"

#include "runtime/TextEncoding.h"

#include <algorithm>

namespace tallybrook::sheets {

namespace {

/// Nothing but plain letters, which nearly every text is.
bool isPlain(std::string_view text, std::size_t most) {
    return text.size() <= most &&
           std::ranges::all_of(text, [](char sign) { return sign >= ' ' && sign <= '~' && sign != '_'; });
}

/// What a file of XML can hold, or a number in its place.
bool isCharacter(char32_t sign) {
    constexpr char32_t kFirstSurrogate = 0xD800;
    constexpr char32_t kLastSurrogate = 0xDFFF;
    return sign != 0 && sign != 0xFFFE && sign != 0xFFFF &&
           !(sign >= kFirstSurrogate && sign <= kLastSurrogate);
}

bool isHexDigit(char32_t sign) {
    return (sign >= U'0' && sign <= U'9') || (sign >= U'a' && sign <= U'f') || (sign >= U'A' && sign <= U'F');
}

/// Whether the text goes on with what stands for a character's number, as in "_x0041_".
bool isNumbered(std::u32string_view rest) {
    return rest.size() >= 7 && rest[1] == U'x' && std::ranges::all_of(rest.substr(2, 4), isHexDigit) &&
           rest[6] == U'_';
}

std::u32string withLineFeeds(const std::u32string& text) {
    std::u32string lines;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool isFollowed = text[at] == U'\r' && at + 1 < text.size() && text[at + 1] == U'\n';
        if (!isFollowed)
            lines += text[at] == U'\r' ? U'\n' : text[at];
    }
    return lines;
}

/// A character as a cell has it. "_" goes by its number where it would begin one.
std::u32string inCell(std::u32string_view rest) {
    if (rest.front() == U'_' && isNumbered(rest))
        return U"_x005F_";
    return {isCharacter(rest.front()) ? rest.front() : U'\uFFFD'};
}

std::size_t unitsOf(std::u32string_view characters) {
    constexpr char32_t kFirstOfTwo = 0x10000;  // takes two units
    std::size_t units = 0;
    for (const char32_t sign : characters)
        units += sign < kFirstOfTwo ? 1 : 2;
    return units;
}

}  // namespace

CellText cellText(std::string_view text, std::size_t most) {
    if (isPlain(text, most))
        return {std::string(text)};
    const std::u32string characters = withLineFeeds(charactersOf(text));
    std::u32string_view rest = characters;
    std::u32string cell;
    std::size_t units = 0;
    for (; !rest.empty(); rest.remove_prefix(1)) {
        const std::u32string next = inCell(rest);
        units += unitsOf(next);
        if (units > most)
            break;
        cell += next;
    }
    return {textOf(cell), !rest.empty()};
}

}  // namespace tallybrook::sheets
