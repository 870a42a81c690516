#include "shell/Program.h"

#include "controls/Screen.h"
#include "runtime/EndProgram.h"
#include "shell/TBK_Globals.h"

#include <utility>

namespace tallybrook {

void BoxReporter::databaseError(const RunTimeError& failure, std::string_view module) {
    try {
        beforeBox_();
    } catch (const RunTimeError& lost) {
        display_.messageBox(databaseErrorBox(lost, module));
    }
    display_.messageBox(databaseErrorBox(failure, module));
}

Program::Program(Display& shown, const Clock& time, std::filesystem::path folder)
    : display(shown), clock(time), dataFolder(std::move(folder)), screens(shown), reporter(shown, [this] {
          if (store_)
              store_->bringToDisk();
      }) {}

Store& Program::store() {
    if (!store_)
        throw RunTimeError(error::kObjectNotSet);
    return *store_;
}

Backups& Program::backups() {
    if (!backups_)
        throw RunTimeError(error::kObjectNotSet);
    return *backups_;
}

void Program::openLogbook() {
    const Upgrade upgrade{.backUp = [this](const std::filesystem::path& file) { backUpNow(file, clock); }};
    store_ = std::make_unique<Store>(logbookFile(), clock, upgrade);
    store_->whileAtWork([this] { display.atWork(); });
    backups_ = std::make_unique<Backups>(*store_, logbookFile(), clock);
    backups_->begin();
}

void Program::perform(const std::function<void()>& action) {
    if (ended_)
        return;
    if (performing_)
        return action();

    const bool hadScreens = !screens.loaded().empty();
    if (!runs(action))
        return end();
    screens.dropUnloaded();
    if (hadScreens && screens.loaded().empty())
        return end();
    if (screens.front() == nullptr)
        screens.showLast();
}

bool Program::runs(const std::function<void()>& action) {
    struct Performing {
        bool& flag;
        ~Performing() { flag = false; }
    } performing{performing_};
    performing_ = true;
    try {
        withMemoryErrors([&] {
            action();
            tellFailedBackup();
        });
    } catch (const EndHandler&) {
        return true;
    } catch (const EndProgram&) {
        return false;
    } catch (const RunTimeError& failure) {
        display.runTimeError(failure);
        return false;
    }
    return true;
}

void Program::tellFailedBackup() {
    if (const auto failure = backups_ ? backups_->takeFailure() : std::nullopt)
        display.messageBox({.text = *failure, .icon = Icon::Warning});
}

void Program::end() {
    ended_ = true;
    screens.dropAll();
    display.ended();
}

}  // namespace tallybrook
