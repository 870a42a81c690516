#include "desktop/RoomyButton.h"

#include "style/Colours.h"

#include <QPainter>

namespace tallybrook {

void RoomyButton::setStandsOut(bool standsOut) {
    if (standsOut != standsOut_)
        update();
    standsOut_ = standsOut;
}

/// A button that stands out has the colours of what is chosen, as long as it can be pressed. Around it those
/// would hide the mark of the focus, so it has one inside.
void RoomyButton::paintEvent(QPaintEvent* event) {
    constexpr double kCorner = 3;
    constexpr double kRoom = 3.5;
    constexpr double kHovered = 0.12;
    constexpr double kDown = 0.3;
    if (!standsOut_ || !isEnabled())
        return QPushButton::paintEvent(event);
    const QColor ground = palette().color(QPalette::Active, QPalette::Highlight);
    const QColor ink = palette().color(QPalette::Active, QPalette::HighlightedText);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(between(ground, Qt::black, isDown() ? kDown : underMouse() ? kHovered : 0));
    painter.drawRoundedRect(rect(), kCorner, kCorner);
    painter.setPen(ink);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextShowMnemonic, text());
    if (!hasFocus())
        return;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(ink, 1.5));
    painter.drawRoundedRect(QRectF(rect()).adjusted(kRoom, kRoom, -kRoom, -kRoom), kCorner, kCorner);
}

}  // namespace tallybrook
