#include "desktop/KeyNames.h"

#include <QKeySequence>

namespace tallybrook {

person::Key keyOf(const QKeyEvent& event) {
    person::Key key;
    key.alt = event.modifiers().testFlag(Qt::AltModifier);
    key.control = event.modifiers().testFlag(Qt::ControlModifier);
    key.shift = event.modifiers().testFlag(Qt::ShiftModifier);
    switch (event.key()) {
        case Qt::Key_Backtab:
            key.shift = true;
            key.name = "Tab";
            break;
        case Qt::Key_Enter:
        case Qt::Key_Return:
            key.name = "Return";
            break;
        case Qt::Key_Escape:
            key.name = "Escape";
            break;
        case Qt::Key_Space:
            key.name = "Space";
            break;
        default:
            key.name = QKeySequence(event.key()).toString(QKeySequence::PortableText).toStdString();
    }
    return key;
}

}  // namespace tallybrook
