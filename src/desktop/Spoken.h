#pragma once

#include <QString>

class QWidget;

// What a screen reader tells of a widget. A name or description is told as changed only where it has changed.
namespace tallybrook {

void tellName(QWidget& widget, const QString& name);
void tellDescription(QWidget& widget, const QString& description);

/// A box has come up by itself: it is told with its text.
void tellAlert(QWidget& box, const QString& text);

}  // namespace tallybrook
