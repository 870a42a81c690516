#pragma once

#include <string>

namespace tallybrook::test {

/// What became of a play.
struct Outcome {
    int status = 0;
    std::string transcript;
    std::string errors;
};

}  // namespace tallybrook::test
