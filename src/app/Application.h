#pragma once

#include "runtime/InstanceLock.h"
#include "shell/Program.h"

#include <filesystem>
#include <memory>

namespace tallybrook {

/// The composition root: makes the state, the store and the factories of the screens, and hands them to a
/// display.
class Application {
public:
    /// Touches nothing yet; start() does. `display` and `clock` must outlive it.
    Application(Display& display, const Clock& clock, std::filesystem::path dataFolder);
    ~Application();

    /// The start procedure, up to the main menu; to be run once.
    void start();

    [[nodiscard]] Program& program() { return program_; }

private:
    void startProcedure();
    void openDataFolder();
    void takeLock();
    void openLogbook();
    void readConfiguration();

    std::unique_ptr<InstanceLock> lock_;  // let go of last, when the logbook is closed
    Program program_;
};

}  // namespace tallybrook
