#include "desktop/RoomyButton.h"

#include "desktop/Ground.h"

#include <QPainter>

namespace tallybrook {

void RoomyButton::setStandsOut(bool standsOut) {
    standsOut_ = standsOut;
    if (standsOut)
        drawChosenGround(*this);
}

/// Around a button that stands out its own colour would hide the mark of the focus, so it has one inside.
void RoomyButton::paintEvent(QPaintEvent* event) {
    constexpr double kInset = 3.5;
    QPushButton::paintEvent(event);
    if (!standsOut_ || !hasFocus())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::ButtonText), 1.5));
    painter.drawRoundedRect(QRectF(rect()).adjusted(kInset, kInset, -kInset, -kInset), 2, 2);
}

}  // namespace tallybrook
