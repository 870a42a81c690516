#include "desktop/TitledBox.h"

#include "style/Colours.h"

#include <QPainter>
#include <QStyleOptionGroupBox>

namespace tallybrook {

void TitledBox::setStanding(Standing standing) {
    if (standing != standing_)
        update();
    standing_ = standing;
}

// The title in a strong font above a faint line; around the current box the line is a thick one.
void TitledBox::paintEvent(QPaintEvent* /*event*/) {
    constexpr double kFaint = 0.2;
    constexpr double kCorner = 4;
    QStyleOptionGroupBox option;
    initStyleOption(&option);
    const QRect inside =
        style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxContents, this);
    const QRectF frame = QRectF(rect()).adjusted(0, inside.top() - inside.left(), 0, 0);
    const bool isCurrent = standing_ == Standing::Current;
    const double width = isCurrent ? 2 : 1;
    const QColor text = palette().color(QPalette::WindowText);

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(
        QPen(isCurrent ? focusColour(palette()) : between(palette().color(QPalette::Window), text, kFaint),
             width));
    painter.drawRoundedRect(frame.adjusted(width / 2, width / 2, -width / 2, -width / 2), kCorner, kCorner);

    QFont strong = font();
    strong.setWeight(QFont::DemiBold);
    painter.setFont(strong);
    painter.setPen(text);
    painter.drawText(QRectF(0, 0, rect().width(), frame.top()),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, title());
}

}  // namespace tallybrook
