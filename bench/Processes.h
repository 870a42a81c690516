#pragma once

#include <string>
#include <vector>

// Programs run in processes of their own, without a display. What ends with another status than 0 is an
// exception.
namespace tallybrook::bench {

/// Seconds of the processor that a program needs from its start to its end; what it writes is dropped.
double processorTimeOf(const std::vector<std::string>& command);

/// What a program writes to its standard output.
std::string outputOf(const std::vector<std::string>& command);

}  // namespace tallybrook::bench
