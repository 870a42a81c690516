#include "app/Application.h"
#include "controls/Person.h"
#include "desktop/BoxWindow.h"
#include "desktop/DesktopDisplay.h"
#include "runtime/DataHome.h"
#include "runtime/OwnFiles.h"
#include "shell/TBK_Globals.h"
#include "style/Settings.h"

#include <QApplication>
#include <QDesktopServices>
#include <QUrl>
#include <algorithm>
#include <array>
#include <exception>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace {

/// What the program was started for, besides being used.
enum class Purpose { Use, RecordNight, ShowFolder };

constexpr std::array<std::pair<std::string_view, Purpose>, 2> kPurposes{
    {{"--record", Purpose::RecordNight}, {"--folder", Purpose::ShowFolder}}};

Purpose purposeOf(int argc, char** argv) {
    const std::string_view first = argc > 1 ? argv[1] : "";
    const auto* const told = std::ranges::find(kPurposes, first, [](const auto& one) { return one.first; });
    return told == kPurposes.end() ? Purpose::Use : told->second;
}

/// What most come to the first screen for.
void recordNight(tallybrook::Program& program) {
    const tallybrook::Screen* const first = program.screens.front();
    if (first != nullptr && first->primary() != nullptr)
        tallybrook::person::click(*first->primary());
}

void tellFailure(std::string text) {
    tallybrook::BoxWindow({.text = std::move(text), .icon = tallybrook::Icon::Critical}, nullptr).ask();
}

/// Opens a folder in the file manager. Returns what hinders that, or nothing.
std::string openFolder(const std::filesystem::path& folder) {
    std::error_code ignored;
    if (!std::filesystem::is_directory(folder, ignored))
        return "It is not there yet. Tallybrook makes it when you start it for the first time.";
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdU16String(folder.u16string()))))
        return "No file manager was found that opens it.";
    return {};
}

/// Shows the data folder; where that cannot be, a box tells why, and the function returns false.
bool showFolder() {
    const std::filesystem::path folder = tallybrook::defaultDataFolder();
    const std::string hindrance = openFolder(folder);
    if (!hindrance.empty())
        tellFailure(tallybrook::lines(
            {"The folder of the logbook cannot be opened:", "", folder.string(), "", hindrance}));
    return hindrance.empty();
}

/// Runs the program to its end; what nothing has caught leaves it.
void run(tallybrook::Application& program, tallybrook::DesktopDisplay& display, Purpose purpose) {
    display.attach(program.program());
    display.perform([&] { program.start(); });
    if (purpose == Purpose::RecordNight)
        display.perform([&] { recordNight(program.program()); });
    std::exception_ptr failure = display.takeFailure();
    if (failure == nullptr && !program.program().hasEnded()) {
        QApplication::exec();
        failure = display.takeFailure();
    }
    if (failure != nullptr)
        std::rethrow_exception(failure);
}

}  // namespace

int main(int argc, char** argv) {
    tallybrook::setUpFiles();
    const QApplication application(argc, argv);
    QApplication::setApplicationName("Tallybrook");
    QApplication::setDesktopFileName("example.tallybrook.tallybrook");
    const Purpose purpose = purposeOf(argc, argv);
    if (purpose == Purpose::ShowFolder)
        return showFolder() ? 0 : 1;
    try {
        const std::unique_ptr<QSettings> settings = tallybrook::settingsOf("Windows");
        const tallybrook::SystemClock clock;
        tallybrook::DesktopDisplay display({.settings = settings.get()});
        tallybrook::Application program(display, clock, tallybrook::defaultDataFolder());
        run(program, display, purpose);
        return 0;
    } catch (const std::exception& failure) {
        tellFailure(failure.what());
        return 1;
    }
}
