#include "app/Application.h"

#include "browse/frmEventList.h"
#include "browse/frmGameList.h"
#include "browse/frmSearchEvents.h"
#include "browse/frmSearchGames.h"
#include "entry/frmEvent.h"
#include "entry/frmFrame.h"
#include "entry/frmGame.h"
#include "handheld/frmSyncPDA.h"
#include "maintenance/frmDBTools.h"
#include "maintenance/modDBUtils.h"
#include "reports/frmEventStats.h"
#include "reports/frmReports.h"
#include "runtime/EndProgram.h"
#include "shell/Configuration.h"
#include "shell/DataFolder.h"
#include "shell/frmAbout.h"
#include "shell/frmHHSetup.h"
#include "shell/frmMain.h"

#include <system_error>
#include <utility>

namespace tallybrook {

namespace fs = std::filesystem;

namespace {

template <typename Made>
void addScreen(Program& program, const std::string& name) {
    program.screens.add(name, [&program] { return std::make_unique<Made>(program); });
}

[[noreturn]] void refuseToStart(Display& display, const MessageBox& box) {
    display.messageBox(box);
    throw EndProgram{};
}

bool isThere(const fs::path& file) {
    std::error_code ignored;  // what cannot be looked for may be there
    return fs::symlink_status(file, ignored).type() != fs::file_type::not_found;
}

/// Whether nobody has ever used the data folder. A first start that was cut off has left no more than folders
/// and the lock.
bool isFirstStart(const Program& program) {
    return !isThere(program.logbookFile()) && !isThere(configurationFile(program));
}

/// Makes the data folder with the folders of the handheld's files, for the user alone.
void makeFolders(const fs::path& folder) {
    fs::create_directories(folder / "TBRK" / "PDA DB Archive");
    fs::permissions(folder, fs::perms::owner_all);
}

}  // namespace

Application::Application(Display& display, const Clock& clock, fs::path dataFolder)
    : program_(display, clock, std::move(dataFolder)) {
    addScreen<frmMain>(program_, "frmMain");
    addScreen<frmAbout>(program_, "frmAbout");
    addScreen<frmHHSetup>(program_, "frmHHSetup");
    addScreen<frmEvent>(program_, "frmEvent");
    addScreen<frmGame>(program_, "frmGame");
    addScreen<frmFrame>(program_, "frmFrame");
    addScreen<frmEventList>(program_, "frmEventList");
    addScreen<frmSearchEvents>(program_, "frmSearchEvents");
    addScreen<frmSearchGames>(program_, "frmSearchGames");
    addScreen<frmGameList>(program_, "frmGameList");
    addScreen<frmSyncPDA>(program_, "frmSyncPDA");
    addScreen<frmDBTools>(program_, "frmDBTools");
    addScreen<frmReports>(program_, "frmReports");
    addScreen<frmEventStats>(program_, "frmEventStats");
}

Application::~Application() = default;

void Application::start() {
    program_.perform([this] { startProcedure(); });
}

void Application::startProcedure() {
    SessionState& session = program_.session;
    session.gHHType.clear();
    session.gHHSyncDir.clear();
    openDataFolder();
    session.gToday = dateOnly(program_.clock.now());
    openLogbook();
    readConfiguration();
    askForCheck(program_);
    program_.screens.load("frmMain");
}

void Application::readConfiguration() {
    if (Read_Config(program_))
        return;
    program_.display.messageBox({.text =
                                     "No configuration file was found. Click \"OK\" to configure Tallybrook. "
                                     "This will only take a minute."});
    Write_Config(program_);
}

void Application::openDataFolder() {
    const fs::path& folder = program_.dataFolder;
    try {
        if (isFirstStart(program_))
            makeFolders(folder);
    } catch (const fs::filesystem_error& failure) {
        refuseToStart(program_.display, {.text = "The folder of the logbook cannot be made:\r\n" +
                                                 folder.string() + "\r\n" + failure.code().message() +
                                                 "\r\nPlease see that nothing else is in its place, and "
                                                 "that you may write where it belongs.",
                                         .icon = Icon::Critical});
    }
    takeLock();
}

void Application::takeLock() {
    const fs::path file = lockFile(program_);
    try {
        lock_ = std::make_unique<InstanceLock>(file);
    } catch (const RunTimeError&) {
        refuseToStart(
            program_.display,
            {.text = "The folder of the logbook cannot be used, since this file cannot be opened:\r\n" +
                     file.string() + "\r\nPlease check the permissions of the folder and of the file.",
             .icon = Icon::Critical});
    }
    if (!lock_->held())
        refuseToStart(program_.display,
                      {.text = "Tallybrook is already running.", .title = "Already Running"});
}

void Application::openLogbook() {
    try {
        program_.openLogbook();
    } catch (const LogbookRefused& refused) {
        refuseToStart(program_.display, {.text = refused.what(), .icon = Icon::Critical});
    }
}

}  // namespace tallybrook
