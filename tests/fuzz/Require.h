#pragma once

#include <cstdlib>
#include <iostream>

namespace tallybrook::test {

/// Ends the process, which the engine takes for a find, unless `holds`; says `what` has not held.
inline void require(bool holds, const char* what) {
    if (holds)
        return;
    std::cerr << what << '\n';
    std::abort();
}

}  // namespace tallybrook::test
