#include "desktop/OutlinedStyle.h"

#include <QImage>
#include <QPainter>
#include <QStyleOptionFrame>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

QPalette paletteOf(const QColor& window, const QColor& text) {
    QPalette palette;
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::Base, window);
    palette.setColor(QPalette::WindowText, text);
    return palette;
}

/// A box as the style draws it, and the lightness of the middle of its upper edge.
int edgeOf(const QStyle& style, const QPalette& palette, QStyle::State state = QStyle::State_Enabled) {
    QImage image(40, 20, QImage::Format_RGB32);
    image.fill(palette.color(QPalette::Window));
    QStyleOptionFrame option;
    option.rect = image.rect();
    option.palette = palette;
    option.state = state;
    option.lineWidth = 1;
    QPainter painter(&image);
    style.drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter);
    painter.end();
    return image.pixelColor(20, 0).lightness();
}

}  // namespace

TEST(OutlinedStyle, DrawsLighterOutlinesOnADarkWindow) {
    const OutlinedStyle style;
    EXPECT_GT(edgeOf(style, paletteOf({32, 32, 32}, {240, 240, 240})), 96);
}

TEST(OutlinedStyle, LeavesALightWindowAndTheFocusAlone) {
    const OutlinedStyle style;
    const QStyle& plain = *style.baseStyle();
    const QPalette light = paletteOf({240, 240, 240}, {16, 16, 16});
    EXPECT_EQ(edgeOf(style, light), edgeOf(plain, light));
    const QPalette dark = paletteOf({32, 32, 32}, {240, 240, 240});
    const QStyle::State focused = QStyle::State_Enabled | QStyle::State_HasFocus;
    EXPECT_EQ(edgeOf(style, dark, focused), edgeOf(plain, dark, focused));
}

}  // namespace tallybrook::test
