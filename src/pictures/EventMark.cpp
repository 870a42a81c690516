#include "pictures/EventMark.h"

#include <QPainter>
#include <QPolygonF>
#include <array>

namespace tallybrook {

namespace {

/// A shape in units of the reach, and whether it is filled. A shape without corners is round.
struct Shape {
    std::array<QPointF, 4> corners;
    bool isFilled;
    bool isRound = false;
};

constexpr double kDot = 0.5;

constexpr std::array<Shape, kEventMarks - 2> kShapes{{
    {{}, true, true},
    {{QPointF(0, -1.1), QPointF(1, 0.8), QPointF(-1, 0.8), QPointF(0, -1.1)}, false},
    {{QPointF(-0.9, -0.9), QPointF(0.9, -0.9), QPointF(0.9, 0.9), QPointF(-0.9, 0.9)}, true},
    {{}, false, true},
    {{QPointF(0, -1.2), QPointF(1.2, 0), QPointF(0, 1.2), QPointF(-1.2, 0)}, true},
}};

void drawCross(QPainter& painter, const QPointF& place, double reach) {
    painter.drawLine(place + QPointF(-reach, -reach), place + QPointF(reach, reach));
    painter.drawLine(place + QPointF(-reach, reach), place + QPointF(reach, -reach));
}

void drawShape(QPainter& painter, const Shape& shape, const QPointF& place, double reach) {
    if (shape.isRound) {
        painter.drawEllipse(place, reach, reach);
        return;
    }
    QPolygonF corners;
    for (const QPointF& corner : shape.corners)
        corners << place + reach * corner;
    painter.drawPolygon(corners);
}

}  // namespace

double reachOfMarks(const PictureLook& look, std::size_t count) {
    constexpr std::size_t kMany = 500;
    return (count > kMany ? 0.14 : 0.22) * look.lineHeight();
}

void drawEventMark(QPainter& painter, int mark, const QPointF& place, double reach, const PictureLook& look) {
    const auto index = static_cast<std::size_t>(mark);
    const bool isFilled = index < kShapes.size() ? kShapes[index].isFilled : true;
    painter.setPen(QPen(look.mark(), look.hair()));
    painter.setBrush(isFilled ? look.mark() : look.ground());
    if (index < kShapes.size())
        drawShape(painter, kShapes[index], place, reach);
    else if (mark == kEventMarks - 2)
        drawCross(painter, place, reach);
    else
        painter.drawEllipse(place, kDot * reach, kDot * reach);
}

}  // namespace tallybrook
