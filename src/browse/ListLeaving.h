#pragma once

namespace tallybrook {

class Program;
class Screen;

/// Previous Screen of a list: asks, and on Yes goes back to the last loaded screen.
void leaveToPrevious(Program& program, Screen& list);

/// Return to Main of a list: asks, and on Yes unloads it before all others and shows the main menu.
void leaveToMain(Program& program, Screen& list);

}  // namespace tallybrook
