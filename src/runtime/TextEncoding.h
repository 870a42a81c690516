#pragma once

#include <string>
#include <string_view>

namespace tallybrook {

/// How a text file is written. In memory all text is UTF-8.
enum class Encoding { Utf8, Windows1252 };

/// UTF-8 where the bytes are valid UTF-8 as a whole, Windows-1252 otherwise.
Encoding encodingOf(std::string_view bytes);

/// The bytes as text in memory.
std::string decoded(std::string_view bytes, Encoding encoding);

/// The text as bytes of a file. A character that Windows-1252 does not have becomes "?".
std::string encoded(std::string_view text, Encoding encoding);

/// The characters of a text, one by one. A byte that is no UTF-8 becomes the replacement character.
std::u32string charactersOf(std::string_view text);

/// The characters as a text.
std::string textOf(std::u32string_view characters);

}  // namespace tallybrook
