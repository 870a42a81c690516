#pragma once

#include <string>
#include <string_view>

namespace tallybrook {

class Program;
class Screen;

/// The line that names a procedure in the boxes of a record that is not there.
std::string debugInformation(std::string_view module);

/// What becomes of a screen whose procedure found no current row: a box that names the procedure in `module`,
/// and the way back to the last loaded screen. Ends the running handler (EndHandler).
[[noreturn]] void leaveWithoutRecord(Program& program, Screen& screen, std::string_view module);

}  // namespace tallybrook
