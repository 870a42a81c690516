#include "desktop/OutlinedStyle.h"

#include "desktop/Colours.h"

#include <QPainter>
#include <QStyleOption>
#include <algorithm>
#include <array>

namespace tallybrook {

namespace {

struct Outline {
    QStyle::PrimitiveElement element;
    double radius;  // of the corners, in pixels
};

constexpr std::array<Outline, 4> kOutlines{{
    {QStyle::PE_PanelLineEdit, 2},
    {QStyle::PE_Frame, 2},
    {QStyle::PE_IndicatorCheckBox, 2},
    {QStyle::PE_IndicatorRadioButton, 99},
}};

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

void draw(const Outline& outline, const QStyleOption& option, QPainter& painter) {
    constexpr double kFaint = 0.6;
    const QPalette& palette = option.palette;
    const QRectF rect = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    const double radius = std::min(outline.radius, rect.width() / 2);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(between(palette.color(QPalette::Active, QPalette::WindowText),
                           palette.color(QPalette::Active, QPalette::Window), kFaint));
    painter.drawRoundedRect(rect, radius, radius);
    painter.restore();
}

}  // namespace

void OutlinedStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                  const QWidget* widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const auto* const outline = std::ranges::find(kOutlines, element, &Outline::element);
    const bool isMarked = option->state.testFlag(State_HasFocus);  // the focus has an outline of its own
    if (outline != kOutlines.end() && !isMarked && baseStyle()->name() == "fusion" && isDark(option->palette))
        draw(*outline, *option, *painter);
}

}  // namespace tallybrook
