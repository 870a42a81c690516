#include "player/DesktopPlay.h"

#include "player/DesktopStage.h"
#include "player/PlayApplication.h"
#include "player/ToolkitNotes.h"

#include <QApplication>
#include <algorithm>
#include <array>

namespace tallybrook {

namespace {

bool isDisplayKnown() {
    constexpr std::array<const char*, 3> kTold{"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"};
    return std::ranges::any_of(kTold, [](const char* name) { return !qEnvironmentVariableIsEmpty(name); });
}

}  // namespace

int playOnDesktop(const Options& options, std::istream& script, std::ostream& transcript,
                  std::ostream& errors, char* program) {
    if (!isDisplayKnown())
        qputenv("QT_QPA_PLATFORM", "offscreen");
    passOverToolkitNotes();
    int count = 1;  // the player's own options are none of the toolkit's, which knows a --display too
    const QApplication application(count, &program);
    DesktopStage stage(options.shots);
    return playApplication(options, stage, script, transcript, errors);
}

}  // namespace tallybrook
