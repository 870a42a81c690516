#include "style/OutlinedStyle.h"

#include "style/BoxIcons.h"
#include "style/Colours.h"
#include "style/LateIcon.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPointer>
#include <QStyleOption>
#include <QTableView>
#include <algorithm>
#include <array>
#include <utility>

namespace tallybrook {

namespace {

struct Outline {
    QStyle::PrimitiveElement element;
    double radius;  // of the corners, in pixels
};

constexpr std::array<Outline, 6> kOutlines{{
    {QStyle::PE_PanelLineEdit, 2},
    {QStyle::PE_PanelButtonCommand, 2},
    {QStyle::PE_Frame, 2},
    {QStyle::PE_FrameFocusRect, 2},
    {QStyle::PE_IndicatorCheckBox, 2},
    {QStyle::PE_IndicatorRadioButton, 99},
}};

/// Whether the element shows by its outline that it has the focus; others have a focus rectangle beside them.
bool marksFocus(QStyle::PrimitiveElement element) {
    return element != QStyle::PE_IndicatorCheckBox && element != QStyle::PE_IndicatorRadioButton;
}

bool isMark(QStyle::PixelMetric metric) {
    return metric == QStyle::PM_IndicatorWidth || metric == QStyle::PM_IndicatorHeight ||
           metric == QStyle::PM_ExclusiveIndicatorWidth || metric == QStyle::PM_ExclusiveIndicatorHeight;
}

/// Makes a text stand out from the grounds that it is drawn on.
void makeReadable(QPalette& palette, QPalette::ColorGroup group, QPalette::ColorRole text,
                  std::initializer_list<QPalette::ColorRole> grounds, double wanted = kTextContrast) {
    QColor colour = palette.color(group, text);
    for (const QPalette::ColorRole ground : grounds)
        colour = contrasting(colour, palette.color(group, ground), wanted);
    palette.setColor(group, text, colour);
}

/// Makes what is chosen stand out from its text, whose colour is also drawn elsewhere.
void makeChoiceReadable(QPalette& palette, QPalette::ColorGroup group) {
    palette.setColor(group, QPalette::Highlight,
                     contrasting(palette.color(group, QPalette::Highlight),
                                 palette.color(group, QPalette::HighlightedText), kTextContrast));
}

/// A list, a grid, or a box of several lines: what covers all of its frame but the edge.
bool isFramedBox(const QWidget* widget) {
    return qobject_cast<const QAbstractItemView*>(widget) != nullptr ||
           qobject_cast<const QPlainTextEdit*>(widget) != nullptr;
}

void drawOutline(const QRect& place, double radius, const QStyleOption& option, QPainter& painter,
                 bool hasFocus) {
    const bool isQuiet =
        !option.state.testFlag(QStyle::State_Enabled) || option.state.testFlag(QStyle::State_ReadOnly);
    constexpr double kPale = 0.5;
    const QColor outline = outlineColour(option.palette);
    const QColor window = option.palette.color(QPalette::Active, QPalette::Window);
    const double width = hasFocus ? 2 : 1;
    const double inset = width / 2;
    const QRectF rect = QRectF(place).adjusted(inset, inset, -inset, -inset);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(hasFocus  ? focusColour(option.palette)
                        : isQuiet ? between(outline, window, kPale)
                                  : outline,
                        width));
    painter.drawRoundedRect(rect, std::min(radius, rect.width() / 2), std::min(radius, rect.width() / 2));
    painter.restore();
}

/// The toolkit lays a veil over the row besides, through which its text is hard to read.
void drawFocusOfRow(const QStyleOption& option, QPainter& painter) {
    const bool isChosen = option.state.testFlag(QStyle::State_Selected);
    painter.save();
    painter.setBrush(Qt::NoBrush);
    painter.setPen(isChosen ? option.palette.color(QPalette::HighlightedText) : focusColour(option.palette));
    painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
    painter.restore();
}

/// The toolkit's own file dialog leaves two of its lists without the labels that they are read aloud by.
void tieLabels(const QFileDialog& dialog) {
    for (const auto& [label, list] :
         {std::pair{"lookInLabel", "lookInCombo"}, std::pair{"fileTypeLabel", "fileTypeCombo"}}) {
        auto* const named = dialog.findChild<QLabel*>(label);
        if (named != nullptr)
            named->setBuddy(dialog.findChild<QComboBox*>(list));
    }
}

}  // namespace

/// Desktops tell no colour for the texts of empty boxes, which would be black, and many tell pale ones for
/// what is off, and texts of rows chosen that are hard to read.
void OutlinedStyle::polish(QPalette& palette) {
    constexpr double kQuiet = 0.7;
    QProxyStyle::polish(palette);
    palette.setColor(QPalette::PlaceholderText,
                     between(palette.color(QPalette::Active, QPalette::Base),
                             palette.color(QPalette::Active, QPalette::Text), kQuiet));
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        makeReadable(palette, group, QPalette::PlaceholderText, {QPalette::Base});
        makeReadable(palette, group, QPalette::Link, {QPalette::Base});
        makeReadable(palette, group, QPalette::LinkVisited, {QPalette::Base});
        makeChoiceReadable(palette, group);
    }
    makeReadable(palette, QPalette::Disabled, QPalette::WindowText, {QPalette::Window}, kShapeContrast);
    makeReadable(palette, QPalette::Disabled, QPalette::ButtonText, {QPalette::Button}, kShapeContrast);
    makeReadable(palette, QPalette::Disabled, QPalette::Text, {QPalette::Window, QPalette::Base},
                 kShapeContrast);
}

void OutlinedStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    if (const auto* const dialog = qobject_cast<QFileDialog*>(widget); dialog != nullptr)
        tieLabels(*dialog);
}

void OutlinedStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                  const QWidget* widget) const {
    if (isPlain() && element == PE_FrameFocusRect && option->state.testFlag(State_Item)) {
        drawFocusOfRow(*option, *painter);
        return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const auto* const outline = std::ranges::find(kOutlines, element, &Outline::element);
    if (outline == kOutlines.end() || !isPlain())
        return;
    const bool hasFocus = option->state.testFlag(State_HasFocus) && marksFocus(element);
    if (hasFocus || element != PE_FrameFocusRect)
        drawOutline(option->rect, outline->radius, *option, *painter, hasFocus);
}

void OutlinedStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                       QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (isPlain() && control == CC_ComboBox)
        drawOutline(option->rect, 2, *option, *painter, option->state.testFlag(State_HasFocus));
}

/// Marks to tick and the icons of message boxes grow with the texts beside them.
int OutlinedStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    constexpr int kBesideText = 6;
    constexpr double kMark = 0.8;  // of the height of the letters
    constexpr double kIcon = 2.3;  // of a line
    constexpr int kFrame = 2;      // as thick as the mark of the focus
    const int usual = QProxyStyle::pixelMetric(metric, option, widget);
    if (!isPlain())
        return usual;
    if (widget != nullptr && isMark(metric))
        return std::max(usual, static_cast<int>(kMark * widget->fontMetrics().ascent()));
    if (widget != nullptr && metric == PM_MessageBoxIconSize)
        return static_cast<int>(kIcon * widget->fontMetrics().height());
    if (metric == PM_DefaultFrameWidth && isFramedBox(widget))
        return kFrame;
    if (metric == PM_FocusFrameHMargin && qobject_cast<const QTableView*>(widget) != nullptr)
        return kBesideText - 1;
    return metric == PM_HeaderMargin ? kBesideText : usual;
}

QSize OutlinedStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                      const QWidget* widget) const {
    constexpr int kAroundItem = 4;
    const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    return isPlain() && type == CT_ItemViewItem ? size + QSize(0, kAroundItem) : size;
}

/// A combo box lets its list down instead of laying it over itself, and the buttons of boxes need no
/// pictures.
int OutlinedStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                             QStyleHintReturn* data) const {
    if (isPlain() && (hint == SH_ComboBox_Popup || hint == SH_DialogButtonBox_ButtonsHaveIcons))
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, data);
}

/// The toolkit's own icons of message boxes are small, and coarse in any other size. That for the entries of
/// a menu bar which have no room takes longer to load than a window to build, and is hardly ever seen.
QIcon OutlinedStyle::standardIcon(StandardPixmap picture, const QStyleOption* option,
                                  const QWidget* widget) const {
    if (isPlain() && picture == SP_ToolBarHorizontalExtensionButton)
        return lateIcon([style = QPointer<QStyle>(baseStyle()), picture] {
            return style == nullptr ? QIcon() : style->standardIcon(picture);
        });
    const QIcon own = isPlain() ? boxIcon(picture) : QIcon();
    return own.isNull() ? QProxyStyle::standardIcon(picture, option, widget) : own;
}

}  // namespace tallybrook
