#pragma once

#include <QString>

class QWidget;

namespace tallybrook {

/// Tells something that is no failure, in a box over a window (or over none).
void tell(QWidget* window, const QString& text);

/// Tells that something could not be done to a file, and why, in a box over a window (or over none).
/// `what` is a sentence that ends before the reason, as in "The report cannot be shown:".
void tellFailure(QWidget* window, const QString& what, const QString& file, const QString& reason);

}  // namespace tallybrook
