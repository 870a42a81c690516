#pragma once

#include "pictures/PictureLook.h"

#include <QPointF>

class QPainter;

namespace tallybrook {

/// How many shapes tell leagues apart; the last stands for all that have none of their own.
inline constexpr int kEventMarks = 7;

/// How far marks reach from their places; less where there are many.
double reachOfMarks(const PictureLook& look, std::size_t count);

/// Draws a mark by its number, from 0, around a place. All differ by their shapes.
void drawEventMark(QPainter& painter, int mark, const QPointF& place, double reach, const PictureLook& look);

}  // namespace tallybrook
