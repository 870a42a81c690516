#pragma once

#include <string>
#include <string_view>

namespace tallybrook {

/// Turns a pin string into what a cell of the line score shows. "X" and "/" stay as they are; of pins left
/// standing, the pins down for the ball "First", and those standing for any other name. An empty pin string
/// leaves `result` as it was.
void Cell_Count(std::string_view pins, std::string& result, std::string_view ball);

}  // namespace tallybrook
