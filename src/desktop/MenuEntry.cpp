#include "desktop/MenuEntry.h"

#include "style/Colours.h"

#include <QPainter>

namespace tallybrook {

namespace {

constexpr int kBesideEntry = 10;  // pixels
constexpr int kAboveEntry = 6;
constexpr double kEntryCorner = 4;

}  // namespace

MenuEntry::MenuEntry(QWidget* parent, bool standsOut) : QPushButton(parent), standsOut_(standsOut) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
    setCursor(Qt::PointingHandCursor);
}

QSize MenuEntry::sizeHint() const {
    const QSize shown = fontMetrics().size(Qt::TextShowMnemonic, text());
    return shown + 2 * QSize(kBesideEntry, kAboveEntry);
}

/// Under the mouse it is seen that it can be pressed.
QColor MenuEntry::ground() const {
    constexpr double kHovered = 0.08;
    constexpr double kDown = 0.18;
    const double share = !isEnabled() ? 0 : isDown() ? kDown : underMouse() ? kHovered : 0;
    const bool isStrong = standsOut_ && isEnabled();
    const QColor plain = palette().color(isStrong ? QPalette::Highlight : QPalette::Window);
    return between(plain, palette().color(QPalette::WindowText), share);
}

void MenuEntry::paintEvent(QPaintEvent* /*event*/) {
    const bool isStrong = standsOut_ && isEnabled();
    const QColor ink = palette().color(isStrong ? QPalette::HighlightedText : QPalette::WindowText);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground());
    painter.drawRoundedRect(rect(), kEntryCorner, kEntryCorner);
    painter.setPen(ink);
    painter.drawText(rect().adjusted(kBesideEntry, 0, -kBesideEntry, 0),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, text());
    if (hasFocus()) {
        const double inset = isStrong ? 3 : 1;
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(isStrong ? ink : focusColour(palette()), isStrong ? 1.5 : 2));
        painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), kEntryCorner,
                                kEntryCorner);
    }
}

}  // namespace tallybrook
