#pragma once

#include <QWidget>

// The ground that texts and lists are drawn on, which is the window's own where nothing can be done with
// them. To be called again when the colours of the desktop have changed.
namespace tallybrook {

/// A box: what the user cannot write into is as readable as the rest.
void drawBoxGround(QWidget& box, bool isQuiet);

/// A list or grid: what is off is pale as well, the row chosen included.
void drawListGround(QWidget& list);

}  // namespace tallybrook
