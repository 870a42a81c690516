#pragma once

#include <QSettings>
#include <memory>

namespace tallybrook {

/// What one of the programs keeps with the desktop's own settings, such as where its windows were. While
/// something lies in the place of their file that is none, such as a device or a link to a file of another
/// name, they last as long as the program.
std::unique_ptr<QSettings> settingsOf(const QString& program);

}  // namespace tallybrook
