#include "app/Application.h"
#include "desktop/BoxWindow.h"
#include "desktop/DesktopDisplay.h"
#include "runtime/DataHome.h"
#include "runtime/OwnFiles.h"

#include <QApplication>
#include <exception>

namespace {

/// Runs the program to its end; what nothing has caught leaves it.
void run(tallybrook::Application& program, tallybrook::DesktopDisplay& display) {
    display.attach(program.program());
    display.perform([&] { program.start(); });
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
    try {
        const tallybrook::SystemClock clock;
        tallybrook::DesktopDisplay display;
        tallybrook::Application program(display, clock, tallybrook::defaultDataFolder());
        run(program, display);
        return 0;
    } catch (const std::exception& failure) {
        tallybrook::BoxWindow({.text = failure.what(), .icon = tallybrook::Icon::Critical}, nullptr).ask();
        return 1;
    }
}
