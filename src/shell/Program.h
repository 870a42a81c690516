#pragma once

#include "backup/Backups.h"
#include "controls/Display.h"
#include "controls/Screens.h"
#include "runtime/Clock.h"
#include "runtime/DataHome.h"
#include "runtime/Handler.h"
#include "shell/SessionState.h"
#include "store/Store.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace tallybrook {

/// Reports the failures of statements in the boxes of the display. While somebody reads one nothing waits to
/// be stored: `beforeBox` sees to that, and its failure has a box of its own.
class BoxReporter : public FailureReporter {
public:
    BoxReporter(Display& display, std::function<void()> beforeBox)
        : display_(display), beforeBox_(std::move(beforeBox)) {}
    void databaseError(const RunTimeError& failure, std::string_view module) override;
    void retrying(std::string_view module, int tries) override { display_.retrying(module, tries); }

private:
    Display& display_;
    std::function<void()> beforeBox_;
};

/// What every screen can reach, and the outermost frame in which everything runs that a person does.
class Program {
public:
    Program(Display& shown, const Clock& time, std::filesystem::path folder);

    ~Program() { screens.dropAll(); }  // before the logbook that they hold recordsets of
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    Display& display;
    const Clock& clock;
    const std::filesystem::path dataFolder;
    SessionState session;
    Screens screens;
    BoxReporter reporter;
    Screen* waiting = nullptr;  // the screen whose procedure tried a statement again last

    /// The file of the logbook.
    [[nodiscard]] std::filesystem::path logbookFile() const { return logbookIn(dataFolder); }
    /// The logbook; error 91 before the start procedure has opened it.
    [[nodiscard]] Store& store();
    /// Opens the logbook in the data folder, or makes it, and begins a backup of it; an older one is backed
    /// up before it is brought up to date. Throws LogbookRefused.
    void openLogbook();
    /// The backups of the logbook; error 91 before the start procedure has opened it.
    [[nodiscard]] Backups& backups();

    /// Runs what a person did, to its end: a failure that nothing catches is shown and ends the program;
    /// whoever is left without a visible screen gets the last loaded one, and the program ends with its last
    /// screen. Nothing happens once it has ended.
    void perform(const std::function<void()>& action);
    [[nodiscard]] bool hasEnded() const { return ended_; }

private:
    bool runs(const std::function<void()>& action);
    void end();

    void tellFailedBackup();

    std::unique_ptr<Store> store_;
    std::unique_ptr<Backups> backups_;
    bool performing_ = false;
    bool ended_ = false;
};

}  // namespace tallybrook
