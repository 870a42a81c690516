#include "keeper/Keeper.h"
#include "keeper/TerminalProgress.h"
#include "runtime/OwnFiles.h"

#include <iostream>
#include <string>
#include <vector>

int main(int argc, char** argv) {
    tallybrook::setUpFiles();
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const tallybrook::SystemClock clock;
    tallybrook::keeper::TerminalProgress progress;
    return static_cast<int>(tallybrook::keeper::runKeeper(arguments, clock, progress, std::cout, std::cerr));
}
