#pragma once

namespace tallybrook {

/// Lets every file and folder that the process makes from now on be its user's alone, whatever makes it. What
/// is there already keeps its permissions.
void keepFilesToOneself();

}  // namespace tallybrook
