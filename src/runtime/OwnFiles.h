#pragma once

namespace tallybrook {

/// Lets every file and folder that the process makes from now on be its user's alone, whatever makes it. What
/// is there already keeps its permissions.
void keepFilesToOneself();

/// Lets a file that may grow no further fail like a full disk, where it would end the process.
void outliveLargeFiles();

/// What each program does before anything else: both of these.
void setUpFiles();

}  // namespace tallybrook
