#pragma once

#include <QIcon>
#include <QStyle>

namespace tallybrook {

/// The icon of a message box, which tells itself by its shape and its sign and not by its colour alone. Null
/// for other pictures, and where the desktop has an icon of its own.
QIcon boxIcon(QStyle::StandardPixmap picture);

}  // namespace tallybrook
