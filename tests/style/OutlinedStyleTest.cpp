#include "style/Colours.h"
#include "style/OutlinedStyle.h"

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

/// The middle of the upper edge of an element as the style draws it.
QColor edgeColour(const QStyle& style, QStyle::PrimitiveElement element, const QPalette& palette,
                  QStyle::State state) {
    QImage image(40, 20, QImage::Format_RGB32);
    image.fill(palette.color(QPalette::Window));
    QStyleOptionFrame option;
    option.rect = image.rect();
    option.palette = palette;
    option.state = state;
    option.lineWidth = 1;
    QPainter painter(&image);
    style.drawPrimitive(element, &option, &painter);
    painter.end();
    return image.pixelColor(20, 0);
}

int edgeOf(const QStyle& style, const QPalette& palette, QStyle::State state = QStyle::State_Enabled) {
    return edgeColour(style, QStyle::PE_PanelLineEdit, palette, state).lightness();
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

TEST(OutlinedStyle, MarksTheFocusOfAList) {
    const OutlinedStyle style;
    for (QPalette palette :
         {paletteOf({240, 240, 240}, {16, 16, 16}), paletteOf({32, 32, 32}, {240, 240, 240})}) {
        palette.setColor(QPalette::Highlight, QColor(10, 20, 200));
        const QStyle::State focused = QStyle::State_Enabled | QStyle::State_HasFocus;
        const auto edge = [&](QStyle::State state) {
            return edgeColour(style, QStyle::PE_Frame, palette, state);
        };
        EXPECT_EQ(edge(focused), palette.color(QPalette::Highlight));
        EXPECT_NE(edge(QStyle::State_Enabled), palette.color(QPalette::Highlight));
    }
}

TEST(OutlinedStyle, EmptyBoxesAreReadable) {
    for (QPalette palette :
         {paletteOf({32, 32, 32}, {240, 240, 240}), paletteOf({240, 240, 240}, {32, 32, 32})}) {
        palette.setColor(QPalette::Text, palette.color(QPalette::WindowText));
        palette.setColor(QPalette::PlaceholderText, Qt::black);
        OutlinedStyle().polish(palette);
        EXPECT_GE(contrast(palette.color(QPalette::PlaceholderText), palette.color(QPalette::Base)), 4.5);
    }
}

TEST(OutlinedStyle, LetsListsDown) {
    EXPECT_EQ(OutlinedStyle().styleHint(QStyle::SH_ComboBox_Popup, nullptr, nullptr, nullptr), 0);
}

}  // namespace tallybrook::test
