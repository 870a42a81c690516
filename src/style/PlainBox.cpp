#include "style/PlainBox.h"

#include <QClipboard>
#include <QGridLayout>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QTextOption>
#include <algorithm>

namespace tallybrook {

namespace {

/// Whether a text is higher than the room for it. One that is longer than any display can show is not even
/// measured.
bool isTooLong(const QString& text, const QFontMetrics& metrics, QSize room) {
    constexpr qsizetype kMost = 20'000;  // characters
    constexpr int kWrapped = Qt::TextWordWrap | Qt::TextWrapAnywhere;
    return text.size() > kMost ||
           metrics.boundingRect(QRect({}, room), kWrapped, text).height() > room.height();
}

/// Whether a word is longer than any line. The toolkit looks for its end anew for each line that it breaks.
bool hasEndlessWord(const QString& text) {
    static const QRegularExpression endless("\\S{1000}");
    return text.contains(endless);
}

}  // namespace

PlainBox::PlainBox(Icon icon, const QString& title, const QString& text, QWidget* parent)
    : QMessageBox(parent) {
    setWindowTitle(title);
    setTextFormat(Qt::PlainText);
    setText(text);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    setAccessibleDescription(text);  // is read aloud as the box comes up
    setIcon(icon);
    layOut();
}

/// Sets icon and text a little further in than the toolkit does; a text without an icon needs less of it.
void PlainBox::layOut() {
    constexpr QMargins kMargins{18, 16, 18, 14};
    auto& grid = dynamic_cast<QGridLayout&>(*layout());
    grid.setContentsMargins(icon() == NoIcon ? 0 : kMargins.left(), kMargins.top(), kMargins.right(),
                            kMargins.bottom());
    grid.setVerticalSpacing(kMargins.top());
    const int column = grid.columnCount() - 1;
    grid.setColumnStretch(column, 1);
    grid.addWidget(placeForText(), 0, column, 2, 1);  // as the icon
}

/// The label that the toolkit has made, or what scrolls a text that is too long for it.
QWidget* PlainBox::placeForText() {
    auto* const label = findChild<QLabel*>("qt_msgbox_label");
    if (!isTooLong(text(), fontMetrics(), roomForText())) {
        label->setAlignment(Qt::AlignLeft | (isLowerThanIcon(*label) ? Qt::AlignVCenter : Qt::AlignTop));
        return label;
    }
    layout()->removeWidget(label);
    label->hide();
    return scrolledText();
}

/// A short text stands beside the middle of its icon, whatever room the buttons take below them.
bool PlainBox::isLowerThanIcon(const QLabel& label) const {
    const int height = findChild<QLabel*>("qt_msgboxex_icon_label")->sizeHint().height();
    return icon() != NoIcon && label.sizeHint().height() <= height;
}

/// Beside a text of this size there is room for the rest of the box, on small displays too.
QSize PlainBox::roomForText() const {
    constexpr int kWidest = 500;  // pixels, from where the toolkit wraps a text
    const QSize display = screen()->availableSize();
    return {std::min(kWidest, display.width() / 2), display.height() * 3 / 5};
}

QWidget* PlainBox::scrolledText() const {
    auto* const scrolled = new QPlainTextEdit;
    if (hasEndlessWord(text()))
        scrolled->setWordWrapMode(QTextOption::WrapAnywhere);
    scrolled->setPlainText(text());
    scrolled->setReadOnly(true);
    scrolled->setTabChangesFocus(true);
    scrolled->setAccessibleName(windowTitle());
    scrolled->setMinimumSize(roomForText());
    return scrolled;
}

/// Where the text is scrolled it comes first, yet the keys are for the buttons.
void PlainBox::showEvent(QShowEvent* event) {
    QMessageBox::showEvent(event);
    if (defaultButton() != nullptr)
        defaultButton()->setFocus();
}

/// Where some of the text is selected, what shows it has taken the key for copying itself.
void PlainBox::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy))
        return QGuiApplication::clipboard()->setText(text());
    QMessageBox::keyPressEvent(event);
}

}  // namespace tallybrook
