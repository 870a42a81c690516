#include "support/Drawing.h"
#include "support/WrittenDown.h"
#include "viewer/ReadingBox.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace tallybrook::test {

/// In all corners of a room, in its middle, and in one that is too small for it.
TEST(ReadingBoxDrawn, StandsBesideThePlace) {
    Drawing drawing;
    const PictureLook look(Drawing::font(10), QPalette(Qt::white), &drawing);
    const QSizeF room(300, 200);
    const QStringList lines{"11/3/2026", "Event: Tuesday", "Average: 187.33"};
    {
        QPainter painter(&drawing);
        for (const QPointF corner :
             {QPointF(20, 20), QPointF(270, 20), QPointF(20, 180), QPointF(270, 180), QPointF(20, 110)})
            paintBox(painter, lines, QRectF(corner, QSizeF(6, 6)), room, look);
        paintBox(painter, lines, {20, 20, 6, 6}, {60, 30}, look);
    }
    EXPECT_TRUE(isAsWrittenDown(drawing.told(), "viewer/drawn/box.txt"));
}

}  // namespace tallybrook::test
