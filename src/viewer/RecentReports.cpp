#include "viewer/RecentReports.h"

#include <QFileInfo>
#include <QSettings>

namespace tallybrook {

namespace {

constexpr const char* kFiles = "recent/files";

}  // namespace

QStringList RecentReports::files() const {
    settings_.sync();  // another window may be of another process
    QStringList files = settings_.value(kFiles).toStringList();
    files.removeAll(QString());
    return files.mid(0, kMost);
}

void RecentReports::add(const QString& file) {
    const QString path = QFileInfo(file).absoluteFilePath();
    QStringList all = files();
    all.removeAll(path);
    all.prepend(path);
    settings_.setValue(kFiles, all.mid(0, kMost));
    settings_.sync();
}

void RecentReports::clear() {
    settings_.remove(kFiles);
    settings_.sync();
}

}  // namespace tallybrook
