#include "desktop/PinButton.h"

#include "style/Colours.h"

#include <QPainter>

namespace tallybrook {

namespace {

constexpr double kInset = 3.5;  // of the ring from the edge: room for the mark of the focus

}  // namespace

PinButton::PinButton(QWidget* parent) : QCheckBox(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize PinButton::sizeHint() const {
    constexpr double kSide = 2.5;  // of the height of its number
    const int side = static_cast<int>(kSide * fontMetrics().height());
    return {side, side};
}

bool PinButton::hitButton(const QPoint& place) const {
    return rect().contains(place);
}

// A standing pin is a full disc with a bold number, one that is down an empty ring. What is off is paler,
// with a dotted ring.
void PinButton::paintEvent(QPaintEvent* /*event*/) {
    const QColor ink = palette().color(QPalette::WindowText);
    const QColor inside = palette().color(QPalette::Active, isEnabled() ? QPalette::Base : QPalette::Window);
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
        painter.setPen(QPen(focusColour(palette()), 2));
        painter.drawEllipse(QRectF(rect()).adjusted(1, 1, -1, -1));
    }
}

}  // namespace tallybrook
