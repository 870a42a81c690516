#include "viewer/ReportWindow.h"

#include <QApplication>
#include <QFile>
#include <QIcon>
#include <QSettings>
#include <cstdio>

namespace {

constexpr int kCannotBeShown = 1;
constexpr int kWrongUsage = 2;

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("Usage: tallybrook-viewer FILE\n", stderr);
        return kWrongUsage;
    }
    int ownArguments = 1;  // a file's name is no option of the toolkit, whatever it begins with
    const QApplication application(ownArguments, argv);
    QApplication::setApplicationName("Tallybrook");
    QApplication::setWindowIcon(QIcon(":/pictures/logo.svg"));
    QSettings settings("Tallybrook", "Viewer");
    tallybrook::ReportWindow window(settings);
    if (!window.open(QFile::decodeName(argv[1])))
        return kCannotBeShown;
    window.show();
    return QApplication::exec();
}
