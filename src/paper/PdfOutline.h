#pragma once

#include "paper/Pages.h"

#include <QByteArray>

namespace tallybrook {

/// A PDF with an outline, from which a reader leads to the pages of its sections. A PDF that cannot be read
/// is given back as it is.
QByteArray withOutline(const QByteArray& pdf, const std::vector<SectionPlace>& sections);

}  // namespace tallybrook
