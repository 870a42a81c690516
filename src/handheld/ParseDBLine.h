#pragma once

#include "runtime/Integer.h"

#include <string>
#include <string_view>

namespace tallybrook {

/// Where the cutting of a line into fields stands, in characters from 1.
struct CutPosition {
    Int16 start;  // where the search for the next field begins
    Int16 end;    // where the delimiter behind the last field stands; 0 if there was none
};

/// Cuts one field out of a line: what lies between the first delimiter at or behind the start position and
/// the next one, or the line's end. Without a first delimiter the search goes on from the line's beginning.
/// Returns the field as UTF-8 and moves the position behind it. Error 5 for a start position below 1, 6 where
/// the delimiter that closes the field stands beyond column 32766; the position then stays as it was. It
/// need not know whether the field is a number: that would tell what stands for a Null, and no text that is
/// cut from a line is one.
std::string ParseDBLine(CutPosition& at, char32_t delimiter, std::u32string_view line);
/// The same for a line of plain ASCII, whose bytes are its characters; the field stands in the line.
std::string_view ParseDBLine(CutPosition& at, char delimiter, std::string_view line);

}  // namespace tallybrook
