#include "carry/Reading.h"
#include "keeper/Keeper.h"
#include "keeper/Options.h"
#include "keeper/TerminalProgress.h"
#include "keeperwindow/KeeperWindow.h"
#include "runtime/OwnFiles.h"
#include "style/OutlinedStyle.h"

#include <QApplication>
#include <QIcon>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

namespace {

using namespace tallybrook;

/// The data folder of the window, if a window is asked for: no command is given, but where there is no
/// display it must be asked for by name.
std::optional<std::filesystem::path> windowsFolder(const std::vector<std::string>& arguments) {
    const bool hasDisplay =
        qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    try {
        const keeper::Options options = keeper::readOptions(arguments);
        const bool isForHelp = options.help || options.version || !options.command.empty();
        if (!isForHelp && (options.window || hasDisplay))
            return options.data;
    } catch (const WrongUsage&) {
        return std::nullopt;  // which is told where commands are carried out
    }
    return std::nullopt;
}

int showWindow(const std::filesystem::path& dataFolder, const Clock& clock, char** argv) {
    int ownArguments = 1;  // the others are not the toolkit's
    const QApplication application(ownArguments, argv);
    QApplication::setStyle(new OutlinedStyle);
    QApplication::setApplicationName("Tallybrook");
    QApplication::setDesktopFileName("example.tallybrook.keeper");
    QApplication::setWindowIcon(QIcon(":/pictures/logo.svg"));
    keeper::KeeperWindow window(dataFolder, clock);
    window.show();
    return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
    if (carry::isReadingProcess({argv, static_cast<std::size_t>(argc)}))
        return carry::beTheReadingProcess();
    setUpFiles();
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const SystemClock clock;
    if (const auto folder = windowsFolder(arguments))
        return showWindow(*folder, clock, argv);
    keeper::TerminalProgress progress;
    return static_cast<int>(keeper::runKeeper(arguments, clock, progress, std::cout, std::cerr));
}
