#pragma once

#include <QFont>

namespace tallybrook {

/// The font of reports, in windows and on paper: the desktop's own fixed-width one.
QFont reportFont();

}  // namespace tallybrook
