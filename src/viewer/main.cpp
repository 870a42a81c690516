#include "runtime/OwnFiles.h"
#include "style/OutlinedStyle.h"
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
    if (argc < 2) {
        std::fputs("Usage: tallybrook-viewer FILE...\n", stderr);
        return kWrongUsage;
    }
    tallybrook::setUpFiles();
    int ownArguments = 1;  // a file's name is no option of the toolkit, whatever it begins with
    const QApplication application(ownArguments, argv);
    QApplication::setStyle(new tallybrook::OutlinedStyle);
    QApplication::setApplicationName("Tallybrook");
    QApplication::setWindowIcon(QIcon(":/pictures/logo.svg"));
    QSettings settings("Tallybrook", "Viewer");
    QStringList files;
    for (int argument = 1; argument < argc; ++argument)
        files += QFile::decodeName(argv[argument]);
    const bool areShown = tallybrook::ReportWindow::openAll(files, settings);
    if (!QApplication::topLevelWindows().isEmpty())
        QApplication::exec();
    return areShown ? 0 : kCannotBeShown;
}
