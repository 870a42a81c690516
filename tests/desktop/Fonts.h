#pragma once

#include <QApplication>
#include <QFont>

namespace tallybrook::test {

/// Fonts of another size, as long as it lives.
class Fonts {
public:
    explicit Fonts(double points) {
        QFont other = before_;
        other.setPointSizeF(points);
        QApplication::setFont(other);
    }
    ~Fonts() { QApplication::setFont(before_); }
    Fonts(const Fonts&) = delete;
    Fonts& operator=(const Fonts&) = delete;

private:
    QFont before_ = QApplication::font();
};

/// Those of twice their size.
class LargeFonts : public Fonts {
public:
    LargeFonts() : Fonts(QApplication::font().pointSizeF() * 2) {}
};

}  // namespace tallybrook::test
