#include "viewer/ReadingBox.h"

#include "pictures/ReportPicture.h"

#include <QPainter>
#include <algorithm>

namespace tallybrook {

namespace {

/// Where a box of a size stands beside a place: below it to the right, or else where there is room.
QRectF boxBeside(const QRectF& place, const QSizeF& size, const QSizeF& room, double gap) {
    const bool isRight = place.right() + gap + size.width() <= room.width();
    const bool isBelow = place.bottom() + gap + size.height() <= room.height();
    const double left = isRight ? place.right() + gap : place.left() - gap - size.width();
    const double top = isBelow ? place.bottom() + gap : place.top() - gap - size.height();
    return {std::clamp(left, 0.0, std::max(room.width() - size.width(), 0.0)),
            std::clamp(top, 0.0, std::max(room.height() - size.height(), 0.0)), size.width(), size.height()};
}

}  // namespace

void paintBox(QPainter& painter, const QStringList& lines, const QRectF& place, const QSizeF& room,
              const PictureLook& look) {
    double widest = 0;
    for (const QString& line : lines)
        widest = std::max(widest, look.widthOf(line, true));
    const double edge = look.digit();
    const QSizeF size(std::min(widest + 2 * edge, room.width()),
                      static_cast<double>(lines.size()) * look.lineHeight() + edge);
    const QRectF box = boxBeside(place, size, room, look.digit() / 2);
    painter.setBrush(look.ground());
    painter.setPen(QPen(look.quiet(), look.hair()));
    painter.drawRoundedRect(box, 4, 4);
    QRectF line(box.left() + edge, box.top() + edge / 2, box.width() - 2 * edge, look.lineHeight());
    for (const QString& text : lines) {
        drawText(painter, line, Qt::AlignLeft | Qt::AlignVCenter, text,
                 &text == &lines.first() ? look.boldFont() : look.font(), look.ink());
        line.translate(0, look.lineHeight());
    }
}

}  // namespace tallybrook
