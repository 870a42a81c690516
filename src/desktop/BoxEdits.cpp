#include "desktop/BoxEdits.h"

#include "desktop/QtText.h"

#include <QKeyEvent>
#include <algorithm>
#include <limits>

namespace tallybrook {

namespace {

constexpr int kBesideText = 2;  // pixels of room more than the toolkit leaves

qsizetype charactersIn(const QString& text) {
    return text.toUcs4().size();
}

}  // namespace

QValidator::State LimitedText::validate(QString& input, int& position) const {
    while (limit_ != 0 && position > 0 && charactersIn(input) > limit_) {
        const int width = position > 1 && input[position - 1].isLowSurrogate() ? 2 : 1;
        position -= width;
        input.remove(position, width);
    }
    return Acceptable;
}

LineEdit::LineEdit(QWidget& parent, const TextBox& box)
    : QLineEdit(&parent), limited_(new LimitedText(this)), characters_(box.options().width) {
    setMaxLength(std::numeric_limits<int>::max());  // the box's own limit holds for typing alone
    setValidator(limited_);
    setTextMargins(kBesideText, 0, kBesideText, 0);
    if (box.options().centred)
        setAlignment(Qt::AlignCenter);
    if (characters_ != 0)
        setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
}

QString LineEdit::textOf(const TextBox& box) {
    return toQt(box.text());
}

void LineEdit::show(const QString& text, qsizetype limit) {
    limited_->setLimit(limit == 0 ? 0 : std::max(limit, charactersIn(text)));
    if (text != shown())
        setText(text);
}

/// Left leads from what is selected to its beginning, as it does in boxes of several lines.
void LineEdit::keyPressEvent(QKeyEvent* event) {
    if (hasSelectedText() && event->matches(QKeySequence::MoveToPreviousChar))
        return setCursorPosition(selectionStart());
    QLineEdit::keyPressEvent(event);
}

QSize LineEdit::sizeHint() const {
    constexpr int kUsual = 40;
    const int characters = characters_ == 0 ? kUsual : characters_ + 2;
    const int height = QLineEdit::sizeHint().height();
    return {fontMetrics().averageCharWidth() * characters + height / 2, height};
}

/// Where room is short, what stands in the middle of its box keeps some, and a text can do with the
/// beginning.
QSize LineEdit::minimumSizeHint() const {
    constexpr int kBeginning = 9;
    constexpr int kBeginningOfName = 18;
    const QSize least = QLineEdit::minimumSizeHint();
    const bool isWhole = alignment().testFlag(Qt::AlignHCenter);
    const int characters = characters_ == 0 ? kBeginningOfName
                           : isWhole        ? characters_
                                            : std::min(characters_, kBeginning);
    return {std::max(least.width(), fontMetrics().averageCharWidth() * (characters + 1)), least.height()};
}

void LinesEdit::keyPressEvent(QKeyEvent* event) {
    wasAllSelected_ = isAllSelected();
    QPlainTextEdit::keyPressEvent(event);
}

QString LinesEdit::textOf(const TextBox& box) {
    return linesToQt(box.text());
}

/// The text with its own blanks: toPlainText() would make those that do not break to usual ones.
QString LinesEdit::shown() const {
    return document()
        ->toRawText()
        .replace(QChar::ParagraphSeparator, '\n')
        .replace(QChar::LineSeparator, '\n');
}

void LinesEdit::show(const QString& text, qsizetype /*limit*/) {
    if (text == shown())
        return;
    setPlainText(text);
    if (!isReadOnly())
        moveCursor(QTextCursor::End);
}

void LinesEdit::selectNothing() {
    QTextCursor cursor = textCursor();
    cursor.clearSelection();
    setTextCursor(cursor);
}

bool LinesEdit::isAllSelected() const {
    const QTextCursor cursor = textCursor();
    return cursor.hasSelection() && cursor.selectedText().size() == document()->characterCount() - 1;
}

int LinesEdit::heightOf(int lines) const {
    return fontMetrics().lineSpacing() * lines +
           2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
}

QSize LinesEdit::sizeHint() const {
    constexpr int kUsual = 30;
    return {fontMetrics().averageCharWidth() * (characters_ == 0 ? kUsual : characters_), heightOf(6)};
}

QSize LinesEdit::minimumSizeHint() const {
    return {fontMetrics().averageCharWidth() * 12, heightOf(3)};
}

}  // namespace tallybrook
