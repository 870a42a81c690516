#include "desktop/Spoken.h"

#include <QAccessible>
#include <QWidget>

namespace tallybrook {

void tellName(QWidget& widget, const QString& name) {
    if (name != widget.accessibleName())
        widget.setAccessibleName(name);
}

void tellDescription(QWidget& widget, const QString& description) {
    if (description != widget.accessibleDescription())
        widget.setAccessibleDescription(description);
}

void tellAlert(QWidget& box, const QString& text) {
    tellDescription(box, text);
    QAccessibleEvent alert(&box, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

}  // namespace tallybrook
