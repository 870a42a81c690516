#pragma once

#include "pictures/PictureLook.h"

#include <QRectF>
#include <QStringList>

class QPainter;

namespace tallybrook {

/// Paints lines of text in a box beside a place, above all that is there; the first line is bold. The box
/// keeps within `room`.
void paintBox(QPainter& painter, const QStringList& lines, const QRectF& place, const QSizeF& room,
              const PictureLook& look);

}  // namespace tallybrook
