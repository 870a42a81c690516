#pragma once

#include "player/Stage.h"

#include <array>
#include <memory>
#include <string>

namespace tallybrook::test {

/// The stages that every play must look the same on.
inline const std::array<std::string, 2> kStages{"model", "desktop"};

/// A new stage of that name.
std::unique_ptr<Stage> makeStage(const std::string& name);

}  // namespace tallybrook::test
