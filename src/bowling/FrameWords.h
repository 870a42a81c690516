#pragma once

#include <string>
#include <string_view>

namespace tallybrook {

/// What a score cell says, in the words of a bowler: "7 so far" after a first ball, "Spare", "9" for an open
/// frame, "Strike, 8 so far" in a tenth frame. Characters that are no marks are left out; empty for a cell
/// without marks.
std::string inWords(std::string_view cell);

}  // namespace tallybrook
