#pragma once

namespace tallybrook {

/// Ends the program. Thrown, so that everything on the way out is destroyed in order, and deliberately no
/// std::exception: no handler of the program catches it, only the display's outermost frame does.
struct EndProgram {};

/// Ends the running handler and all its callers, but not the program: what a box does whose answer has
/// unloaded the screen that asked.
struct EndHandler {};

}  // namespace tallybrook
