#include "player/DesktopHands.h"

#include "controls/Keyboard.h"
#include "desktop/QtText.h"
#include "player/KeyNames.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QCheckBox>
#include <QPointer>
#include <QRadioButton>
#include <QScrollBar>
#include <QStyle>
#include <QTest>
#include <algorithm>
#include <functional>

namespace tallybrook::hands {

namespace {

/// What of the widget the mouse is pressed on.
QWidget& surfaceOf(QWidget& widget) {
    auto* const area = qobject_cast<QAbstractScrollArea*>(&widget);
    return area == nullptr ? widget : *area->viewport();
}

/// Where the mouse is pressed: in the middle, but on the mark of an option or check box, which may be much
/// wider than what takes the click.
QPoint spotOn(const QWidget& widget) {
    const bool isMarked = qobject_cast<const QCheckBox*>(&widget) != nullptr ||
                          qobject_cast<const QRadioButton*>(&widget) != nullptr;
    const QPoint middle = widget.rect().center();
    if (!isMarked)
        return middle;
    return {widget.style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, &widget) / 2, middle.y()};
}

Qt::KeyboardModifiers modifiersOf(const person::Key& key) {
    Qt::KeyboardModifiers modifiers;
    modifiers.setFlag(Qt::AltModifier, key.alt);
    modifiers.setFlag(Qt::ControlModifier, key.control);
    modifiers.setFlag(Qt::ShiftModifier, key.shift);
    return modifiers;
}

/// The key that gives a character: keyboards name it by the capital letter.
Qt::Key keyOf(char32_t character) {
    return character == U'\n' ? Qt::Key_Return : static_cast<Qt::Key>(QChar::toUpper(character));
}

void strike(QWidget& widget, char32_t character) {
    const QString text = character == U'\n' ? "\r" : QStringView(QChar::fromUcs4(character)).toString();
    QTest::sendKeyEvent(QTest::Click, &widget, keyOf(character), text, Qt::NoModifier);
}

/// Presses the mouse on the widget and releases it at a place, unless the widget is gone by then.
void pressAndRelease(QWidget& widget, const std::function<QPoint(const QWidget& surface)>& place) {
    const QPointer<QWidget> surface(&surfaceOf(widget));
    QTest::mousePress(surface, Qt::LeftButton, Qt::NoModifier, spotOn(*surface));
    if (surface)
        QTest::mouseRelease(surface, Qt::LeftButton, Qt::NoModifier, place(*surface));
}

/// Moves the mouse about: a list that has just been opened takes a release only from a mouse that has moved.
void wander(QWidget& surface) {
    for (const QPoint place : {QPoint(200, 200), QPoint(-200, -200)}) {
        QMouseEvent move(QEvent::MouseMove, place, surface.mapToGlobal(place), Qt::NoButton, Qt::NoButton,
                         Qt::NoModifier);
        QApplication::sendEvent(&surface, &move);
    }
}

}  // namespace

void click(QWidget& widget) {
    pressAndRelease(widget, spotOn);
}

void touch(QWidget& widget) {
    pressAndRelease(widget, [](const QWidget&) { return QPoint(-2, -2); });
    if (QWidget* const opened = QApplication::activePopupWidget(); opened != nullptr)
        opened->close();
}

void clickItem(QAbstractItemView& items, const QModelIndex& item) {
    items.scrollTo(item);
    if (const int left = items.visualRect(item).left(); left >= items.viewport()->width()) {
        QScrollBar& sideways = *items.horizontalScrollBar();
        sideways.setValue(sideways.value() + left);
    }
    const QRect seen = items.visualRect(item).intersected(items.viewport()->rect());
    const QPoint place(seen.left() + std::min(seen.width() / 2, 8), seen.center().y());
    const QPointer<QWidget> surface(items.viewport());
    QTest::mousePress(surface, Qt::LeftButton, Qt::NoModifier, place);
    if (surface)
        QTest::mouseRelease(surface, Qt::LeftButton, Qt::NoModifier, place);
}

void pickFrom(QComboBox& combo, int index) {
    click(combo);
    QAbstractItemView& items = *combo.view();
    wander(*items.viewport());
    clickItem(items, combo.model()->index(index, combo.modelColumn()));
}

void pressKey(QWidget& window, const std::string& key) {
    const person::Key read = person::readKey(key);
    QWidget& target = window.focusWidget() == nullptr ? window : *window.focusWidget();
    if (const std::optional<Qt::Key> named = keyNamed(read.name); named) {
        const QString text = *named == Qt::Key_Space ? " " : *named == Qt::Key_Return ? "\r" : "";
        QTest::sendKeyEvent(QTest::Click, &target, *named, text, modifiersOf(read));
        return;
    }
    const char32_t character = toQt(read.name).toUcs4().front();
    const bool writes = !read.alt && !read.control;
    QTest::sendKeyEvent(QTest::Click, &target, keyOf(character),
                        writes ? QStringView(QChar::fromUcs4(character)).toString() : QString(),
                        modifiersOf(read));
}

void typeOver(QWidget& widget, const std::string& text) {
    const QPointer<QWidget> lasting(&widget);
    QTest::keyClick(&widget, Qt::Key_A, Qt::ControlModifier);
    if (text.empty())
        QTest::keyClick(&widget, Qt::Key_Delete);
    for (const char32_t character : toQt(text).toUcs4()) {
        if (lasting)
            strike(widget, character);
    }
}

}  // namespace tallybrook::hands
