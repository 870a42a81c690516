#include "runtime/OwnFiles.h"
#include "style/OutlinedStyle.h"
#include "style/Settings.h"
#include "viewer/Boxes.h"
#include "viewer/RecentReports.h"
#include "viewer/ReportWindow.h"

#include <QApplication>
#include <QFile>
#include <QIcon>
#include <cstdio>

namespace {

constexpr int kCannotBeShown = 1;
constexpr int kWrongUsage = 2;

/// The files that the program was started with. Their names are taken as they stand.
QStringList namedFiles(int argc, char** argv) {
    QStringList files;
    for (int argument = 1; argument < argc; ++argument)
        files += QFile::decodeName(argv[argument]);
    return files;
}

/// The report that was opened last. None, which a box tells, where none ever was.
QStringList lastReport(QSettings& settings) {
    QStringList last = tallybrook::RecentReports(settings).files().mid(0, 1);
    if (last.isEmpty())
        tallybrook::tell(
            nullptr,
            "No report has been opened yet.\n\nIn Tallybrook, choose Data, Reports to write one. "
            "Then File, Open shows it.");
    return last;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fputs("Usage: tallybrook-viewer FILE... | --last\n", stderr);
        return kWrongUsage;
    }
    tallybrook::setUpFiles();
    int ownArguments = 1;  // a file's name is no option of the toolkit, whatever it begins with
    const QApplication application(ownArguments, argv);
    QApplication::setStyle(new tallybrook::OutlinedStyle);
    QApplication::setApplicationName("Tallybrook");
    QApplication::setDesktopFileName("example.tallybrook.viewer");
    QApplication::setWindowIcon(QIcon(":/pictures/logo.svg"));
    const std::unique_ptr<QSettings> settings = tallybrook::settingsOf("Viewer");
    const QStringList named = namedFiles(argc, argv);
    const QStringList files = named == QStringList("--last") ? lastReport(*settings) : named;
    const bool areShown = !files.isEmpty() && tallybrook::ReportWindow::openAll(files, *settings);
    if (!QApplication::topLevelWindows().isEmpty())
        QApplication::exec();
    return areShown ? 0 : kCannotBeShown;
}
