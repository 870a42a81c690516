#include "style/OutlinedStyle.h"

#include "style/Colours.h"

#include <QPainter>
#include <QStyleOption>
#include <QTableView>
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

QColor faint(const QPalette& palette) {
    constexpr double kFaint = 0.6;
    return between(palette.color(QPalette::Active, QPalette::WindowText),
                   palette.color(QPalette::Active, QPalette::Window), kFaint);
}

void draw(const Outline& outline, const QColor& colour, const QStyleOption& option, QPainter& painter) {
    const QRectF rect = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    const double radius = std::min(outline.radius, rect.width() / 2);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(colour);
    painter.drawRoundedRect(rect, radius, radius);
    painter.restore();
}

}  // namespace

/// Desktops that tell no colour for the texts of empty boxes would get a black one.
void OutlinedStyle::polish(QPalette& palette) {
    constexpr double kQuiet = 0.7;
    QProxyStyle::polish(palette);
    palette.setColor(QPalette::PlaceholderText,
                     between(palette.color(QPalette::Active, QPalette::Base),
                             palette.color(QPalette::Active, QPalette::Text), kQuiet));
}

void OutlinedStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                  const QWidget* widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const auto* const outline = std::ranges::find(kOutlines, element, &Outline::element);
    if (outline == kOutlines.end() || !isPlain())
        return;
    const bool hasFocus = option->state.testFlag(State_HasFocus);
    if (hasFocus && element == PE_Frame)  // other elements have a mark of their own
        draw(*outline, option->palette.color(QPalette::Active, QPalette::Highlight), *option, *painter);
    else if (!hasFocus && isDark(option->palette))
        draw(*outline, faint(option->palette), *option, *painter);
}

int OutlinedStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    constexpr int kBesideText = 6;
    const bool isTable = qobject_cast<const QTableView*>(widget) != nullptr;
    if (isPlain() && isTable && metric == PM_FocusFrameHMargin)
        return kBesideText - 1;
    if (isPlain() && metric == PM_HeaderMargin)
        return kBesideText;
    return QProxyStyle::pixelMetric(metric, option, widget);
}

QSize OutlinedStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                      const QWidget* widget) const {
    constexpr int kAroundItem = 4;
    const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    return isPlain() && type == CT_ItemViewItem ? size + QSize(0, kAroundItem) : size;
}

/// A combo box lets its list down instead of laying it over itself.
int OutlinedStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                             QStyleHintReturn* data) const {
    if (isPlain() && hint == SH_ComboBox_Popup)
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, data);
}

}  // namespace tallybrook
