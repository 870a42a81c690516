#pragma once

#include <QApplication>
#include <QFont>

namespace tallybrook::test {

/// Fonts of twice their size, as long as it lives.
class LargeFonts {
public:
    LargeFonts() {
        QFont large = before_;
        large.setPointSizeF(before_.pointSizeF() * 2);
        QApplication::setFont(large);
    }
    ~LargeFonts() { QApplication::setFont(before_); }
    LargeFonts(const LargeFonts&) = delete;
    LargeFonts& operator=(const LargeFonts&) = delete;

private:
    QFont before_ = QApplication::font();
};

}  // namespace tallybrook::test
