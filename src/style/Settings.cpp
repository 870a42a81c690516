#include "style/Settings.h"

#include <QFileInfo>
#include <QStandardPaths>

namespace tallybrook {

namespace {

/// A link may lead to where somebody keeps the settings of all programs.
bool canBeWritten(const QString& path) {
    const QFileInfo file(path);
    if (!file.exists() && !file.isSymbolicLink())
        return true;
    const QFileInfo target(file.canonicalFilePath());
    return target.isFile() && target.fileName() == file.fileName();
}

}  // namespace

std::unique_ptr<QSettings> settingsOf(const QString& program) {
    const QString path = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                         "/Tallybrook/" + program + ".conf";
    return std::make_unique<QSettings>(canBeWritten(path) ? path : QString(), QSettings::IniFormat);
}

}  // namespace tallybrook
