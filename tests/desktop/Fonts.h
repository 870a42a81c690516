#pragma once

#include <QApplication>
#include <QFont>

namespace tallybrook::test {

/// The desktop's font in another size.
inline QFont inPoints(double points) {
    QFont font = QApplication::font();
    font.setPointSizeF(points);
    return font;
}
/// As a desktop can tell it too.
inline QFont inPixels(int pixels) {
    QFont font = QApplication::font();
    font.setPixelSize(pixels);
    return font;
}

/// Another font of the desktop, as long as it lives.
class Fonts {
public:
    explicit Fonts(const QFont& other) { QApplication::setFont(other); }
    ~Fonts() { QApplication::setFont(before_); }
    Fonts(const Fonts&) = delete;
    Fonts& operator=(const Fonts&) = delete;

private:
    QFont before_ = QApplication::font();
};

/// One of twice its size.
class LargeFonts : public Fonts {
public:
    LargeFonts() : Fonts(inPoints(QApplication::font().pointSizeF() * 2)) {}
};

}  // namespace tallybrook::test
