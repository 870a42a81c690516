#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tallybrook::sheets {

/// A text as a cell can hold it.
struct CellText {
    std::string text;
    bool isCut = false;
};

/// The text with LF for whatever ends its lines and the replacement character for what no cell can hold, cut
/// to `most` UTF-16 units. What a spreadsheet would take for the number of a character, as in "_x0041_", is
/// written so that it stays.
CellText cellText(std::string_view text, std::size_t most);

}  // namespace tallybrook::sheets
