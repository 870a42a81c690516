#include "player/PlayApplication.h"

#include "app/Application.h"
#include "player/CurrentFolder.h"
#include "player/Places.h"
#include "player/Player.h"
#include "player/TemporaryFolder.h"

#include <optional>

namespace tallybrook {

namespace fs = std::filesystem;

int playApplication(const Options& options, Stage& stage, std::istream& script, std::ostream& transcript,
                    std::ostream& errors) {
    const CurrentFolder start;
    std::optional<TemporaryFolder> temporary;
    const fs::path data = plainPath(options.data ? *options.data : temporary.emplace().path());

    Player player(script, transcript, stage, Places(data, start.path()), options.clock);
    Application application(player.display(), player.clock(), data);
    return player.play(
        application.program(), [&] { application.start(); }, errors);
}

}  // namespace tallybrook
