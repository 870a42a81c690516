#include "desktop/PinButton.h"

#include "style/Colours.h"

#include <QPainter>

namespace tallybrook {

namespace {

constexpr double kInset = 3.5;  // of the ring from the edge: room for the mark of the focus

}  // namespace

PinButton::PinButton(QWidget* parent) : QAbstractButton(parent) {
    setCheckable(true);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize PinButton::sizeHint() const {
    const int side = fontMetrics().height() + 16;
    return {side, side};
}

// A standing pin is a full disc with a bold number, one that is down an empty ring. What is off is paler,
// with a dotted ring.
void PinButton::paintEvent(QPaintEvent* /*event*/) {
    constexpr double kPale = 0.4;
    const QColor ground = palette().color(QPalette::Active, QPalette::Window);
    const QColor strong = palette().color(QPalette::Active, QPalette::WindowText);
    const QColor ink = isEnabled() ? strong : between(strong, ground, kPale);
    const QColor inside = isEnabled() ? palette().color(QPalette::Base) : ground;
    const QRectF ring = QRectF(rect()).adjusted(kInset, kInset, -kInset, -kInset);

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ink, 1.5, isEnabled() ? Qt::SolidLine : Qt::DotLine));
    painter.setBrush(isChecked() ? ink : inside);
    painter.drawEllipse(ring);

    QFont number = font();
    number.setBold(isChecked());
    painter.setFont(number);
    painter.setPen(isChecked() ? inside : ink);
    painter.drawText(ring, Qt::AlignCenter, text());

    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.drawEllipse(QRectF(rect()).adjusted(1, 1, -1, -1));
    }
}

}  // namespace tallybrook
