#pragma once

#include <QColor>

namespace tallybrook {

/// A colour between two, `share` of the way from the first to the second.
QColor between(const QColor& first, const QColor& second, double share);

}  // namespace tallybrook
