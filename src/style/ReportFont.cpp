#include "style/ReportFont.h"

#include <QFontDatabase>

namespace tallybrook {

QFont reportFont() {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setStyleHint(QFont::TypeWriter);
    font.setFixedPitch(true);
    font.setKerning(false);
    return font;
}

}  // namespace tallybrook
