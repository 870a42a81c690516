#include "Stages.h"

#include "player/DesktopStage.h"
#include "player/ModelStage.h"

namespace tallybrook::test {

std::unique_ptr<Stage> makeStage(const std::string& name) {
    if (name == "desktop")
        return std::make_unique<DesktopStage>();
    return std::make_unique<ModelStage>();
}

}  // namespace tallybrook::test
