#pragma once

#include <QColor>

namespace tallybrook {

/// A colour between two, `share` of the way from the first to the second.
QColor between(const QColor& first, const QColor& second, double share);

/// How far two colours are apart in brightness: 1 for the same one, up to 21 for black and white. Text is
/// read well from 4.5 on, a shape is seen from 3 on.
double contrast(const QColor& first, const QColor& second);

}  // namespace tallybrook
