#pragma once

#include <QColor>
#include <QPalette>

namespace tallybrook {

/// A colour between two, `share` of the way from the first to the second.
QColor between(const QColor& first, const QColor& second, double share);

/// How far two colours are apart in brightness: 1 for the same one, up to 21 for black and white. Text is
/// read well from 4.5 on, a shape is seen from 3 on.
double contrast(const QColor& first, const QColor& second);

inline constexpr double kTextContrast = 4.5;  // the contrast of a text with its ground
inline constexpr double kShapeContrast = 3;   // and of an outline

/// The colour itself where its contrast with the ground is at least `wanted`, else one that is as much
/// brighter or darker as it takes.
QColor contrasting(const QColor& colour, const QColor& ground, double wanted);

/// What outlines are drawn in, and the mark around what has the focus: seen on the window and in a box.
QColor outlineColour(const QPalette& palette);
QColor focusColour(const QPalette& palette);

}  // namespace tallybrook
