#pragma once

#include "controls/Keyboard.h"

#include <QKeyEvent>

namespace tallybrook {

/// The key that was pressed, in the program's own terms.
person::Key keyOf(const QKeyEvent& event);

}  // namespace tallybrook
