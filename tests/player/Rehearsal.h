#pragma once

#include "Outcome.h"
#include "TestScreens.h"
#include "player/CurrentFolder.h"
#include "player/Player.h"
#include "support/StoredEvents.h"
#include "support/TemporaryFolder.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace tallybrook::test {

/// The time that rehearsals are played at.
inline constexpr DateTime kEvening = makeDate(2026, 11, 14) + std::chrono::hours{21};

/// Puts a logbook with so many events there. It is made once for each number, since that takes its time.
inline void copyEvents(const std::filesystem::path& logbook, int count) {
    static const TemporaryFolder kMade;
    const std::filesystem::path made = kMade.path() / std::to_string(count);
    if (!std::filesystem::exists(made))
        writeEvents(made, count, SettableClock(kEvening));
    std::filesystem::copy_file(made, logbook);
}

/// Plays a script on the test screens, of which these are loaded at the start. The logbook holds so many
/// events.
inline Outcome rehearse(Stage& stage, const std::string& script,
                        const std::vector<std::string>& first = {"frmOne"}, int events = 0) {
    const CurrentFolder start;
    const TemporaryFolder data;
    if (events > 0)
        copyEvents(data.path() / "Tallybrook_DB.mdb", events);
    std::istringstream in(script);
    std::ostringstream out;
    std::ostringstream errors;
    Player player(in, out, stage, Places(data.path(), start.path()), kEvening);
    Program program(player.display(), player.clock(), data.path());
    program.screens.add("frmOne", [&program] { return std::make_unique<frmOne>(program); });
    program.screens.add("frmLists", [&program] { return std::make_unique<frmLists>(program); });
    program.screens.add("frmTwo", [&program] { return std::make_unique<frmTwo>(program); });
    const int status = player.play(
        program,
        [&] {
            program.perform([&] {
                program.openLogbook();
                for (const std::string& screen : first)
                    program.screens.load(screen);
            });
        },
        errors);
    return {.status = status, .transcript = out.str(), .errors = errors.str()};
}

}  // namespace tallybrook::test
