#pragma once

#include "TestScreens.h"
#include "player/CurrentFolder.h"
#include "player/Player.h"
#include "player/TemporaryFolder.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <sstream>
#include <string>

namespace tallybrook::test {

/// What became of a play.
struct Outcome {
    int status = 0;
    std::string transcript;
    std::string errors;
};

/// The time that rehearsals are played at.
inline constexpr DateTime kEvening = makeDate(2026, 11, 14) + std::chrono::hours{21};

/// Plays a script on the test screens.
inline Outcome rehearse(Stage& stage, const std::string& script) {
    const CurrentFolder start;
    const TemporaryFolder data;
    std::istringstream in(script);
    std::ostringstream out;
    std::ostringstream errors;
    Player player(in, out, stage, Places(data.path(), start.path()), kEvening);
    Program program(player.display(), player.clock(), data.path());
    program.screens.add("frmOne", [&program] { return std::make_unique<frmOne>(program); });
    program.screens.add("frmTwo", [&program] { return std::make_unique<frmTwo>(program); });
    const int status = player.play(
        program,
        [&program] {
            program.perform([&program] {
                program.openLogbook();
                program.screens.load("frmOne");
            });
        },
        errors);
    return {.status = status, .transcript = out.str(), .errors = errors.str()};
}

}  // namespace tallybrook::test
