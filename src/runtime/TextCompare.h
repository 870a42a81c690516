#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Comparing and measuring UTF-8 texts by characters. A byte that is no UTF-8 counts as a character of its
// own.
namespace tallybrook {

/// The text with every letter folded, so that texts that differ only in case become equal.
std::string foldCase(std::string_view text);

/// The text in capitals.
std::string upperCase(std::string_view text);

/// Below, equal to or above 0 as `a` comes before, with or after `b`, without case, by code points.
int compareText(std::string_view a, std::string_view b);

/// Whether the text matches the pattern without case: "%" stands for any run of characters, "_" for one.
bool likeText(std::string_view text, std::string_view pattern);

/// The number of characters.
std::size_t characterCount(std::string_view text);

/// The text without what no key writes: control characters but those of `kept`, ends of lines and paragraphs,
/// code points that are no characters, and bytes that are no UTF-8.
std::string asWritten(std::string_view text, std::string_view kept = {});

/// The text cut to its first `count` characters.
std::string_view firstCharacters(std::string_view text, std::size_t count);

}  // namespace tallybrook
