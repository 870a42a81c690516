#include "desktop/PinButton.h"

#include <QPainter>

namespace tallybrook {

PinButton::PinButton(QWidget* parent) : QAbstractButton(parent) {
    setCheckable(true);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize PinButton::sizeHint() const {
    const int side = fontMetrics().height() + 14;
    return {side, side};
}

// A standing pin is filled, with a bold number; one that is down is an empty ring. What is off is drawn with
// a thin broken line.
void PinButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPalette::ColorGroup group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    const QColor ink = palette().color(group, QPalette::WindowText);
    const QColor filling = isChecked()
                               ? palette().color(group, QPalette::Highlight)
                               : palette().color(group, isEnabled() ? QPalette::Base : QPalette::Window);
    const QColor number = isChecked() ? palette().color(group, QPalette::HighlightedText) : ink;
    const QRectF ring = QRectF(rect()).adjusted(3.5, 3.5, -3.5, -3.5);

    painter.setPen(isEnabled() ? QPen(ink, isChecked() ? 2.0 : 1.3) : QPen(ink, 1.0, Qt::DotLine));
    painter.setBrush(filling);
    painter.drawEllipse(ring);
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2.0));
        painter.drawEllipse(QRectF(rect()).adjusted(1, 1, -1, -1));
    }
    QFont numberFont = font();
    numberFont.setBold(isChecked());
    painter.setFont(numberFont);
    painter.setPen(number);
    painter.drawText(ring, Qt::AlignCenter, text());
}

}  // namespace tallybrook
