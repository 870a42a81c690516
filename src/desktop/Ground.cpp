#include "desktop/Ground.h"

#include "style/Colours.h"

#include <QApplication>

namespace tallybrook {

namespace {

void give(QWidget& widget, const QPalette& palette) {
    if (palette != widget.palette())
        widget.setPalette(palette);
}

}  // namespace

void drawBoxGround(QWidget& box, bool isQuiet) {
    const QPalette usual = QApplication::palette();
    QPalette palette = box.palette();
    const auto take = [&](QPalette::ColorRole role, QPalette::ColorRole from) {
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            const QColor& color = usual.color(isQuiet ? QPalette::Active : group, isQuiet ? from : role);
            if (palette.color(group, role) != color)  // mostly nothing has changed
                palette.setColor(group, role, color);
        }
    };
    take(QPalette::Base, QPalette::Window);
    take(QPalette::Text, QPalette::WindowText);
    give(box, palette);
}

void drawListGround(QWidget& list) {
    constexpr double kFaint = 0.15;
    constexpr double kPale = 0.55;
    const QPalette usual = QApplication::palette();
    const QColor window = usual.color(QPalette::Active, QPalette::Window);
    const QColor text = usual.color(QPalette::Active, QPalette::WindowText);
    QPalette palette = list.palette();
    palette.setColor(QPalette::Disabled, QPalette::Base, window);
    palette.setColor(QPalette::Disabled, QPalette::AlternateBase, window);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, between(window, text, kFaint));
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, between(window, text, kPale));
    give(list, palette);
}

}  // namespace tallybrook
