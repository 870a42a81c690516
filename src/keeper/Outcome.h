#pragma once

#include "keeper/ExitStatus.h"

#include <functional>
#include <string>

namespace tallybrook::keeper {

/// How a piece of work has ended.
struct Outcome {
    ExitStatus status = ExitStatus::Done;
    std::string why = {};  // what a person is told where it is not done
};

/// Does a piece of work, and tells how it has ended. Raises nothing.
Outcome outcomeOf(const std::function<void()>& work);

}  // namespace tallybrook::keeper
