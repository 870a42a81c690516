#include "Stages.h"

#include "player/ModelStage.h"

namespace tallybrook::test {

std::unique_ptr<Stage> makeStage(const std::string&) {
    return std::make_unique<ModelStage>();
}

}  // namespace tallybrook::test
