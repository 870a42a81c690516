#pragma once

namespace tallybrook {

class Program;

// The configuration file in the data folder, which keeps what must be remembered between two runs: the kind
// of handheld and the directory of its synchronisation software.

/// Reads the file into gHHType and gHHSyncDir; tells whether there is one. Error 5 for a line that has no "="
/// and is no comment, and what TextReader raises.
bool Read_Config(Program& program);

/// Writes the file from gHHType and gHHSyncDir. Errors as TextWriter raises them.
void Write_Config(Program& program);

}  // namespace tallybrook
