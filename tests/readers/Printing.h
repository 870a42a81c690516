#pragma once

#include <QString>
#include <ostream>

/// How the tests show a text.
inline void PrintTo(const QString& text, std::ostream* stream) {
    *stream << '"' << text.toStdString() << '"';
}
