#include "app/Application.h"
#include "desktop/DesktopDisplay.h"

#include <QApplication>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName("Tallybrook");
    QApplication::setApplicationDisplayName("Tallybrook");

    const tallybrook::SystemClock clock;
    tallybrook::DesktopDisplay display;
    tallybrook::Application tallybrook(display, clock, tallybrook::defaultDataFolder());
    display.attach(tallybrook.program());
    tallybrook.start();
    return tallybrook.program().hasEnded() ? 0 : QApplication::exec();
}
