#include "desktop/BoxEdits.h"

#include "desktop/QtText.h"

#include <algorithm>
#include <limits>

namespace tallybrook {

QValidator::State LimitedText::validate(QString& input, int& position) const {
    const auto characters = [](const QString& text) { return text.toUcs4().size(); };
    const qsizetype limit =
        std::max<qsizetype>(box_.options().maxLength, characters(toQt(box_.text())));
    while (position > 0 && characters(input) > limit) {
        const int width = position > 1 && input[position - 1].isLowSurrogate() ? 2 : 1;
        position -= width;
        input.remove(position, width);
    }
    return Acceptable;
}

LineEdit::LineEdit(QWidget& parent, const TextBox& box)
    : QLineEdit(&parent), characters_(box.options().width) {
    setMaxLength(std::numeric_limits<int>::max());  // the box's own limit holds for typing alone
    if (box.options().maxLength != 0)
        setValidator(new LimitedText(this, box));
    if (box.options().centred)
        setAlignment(Qt::AlignCenter);
    if (characters_ != 0)
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QLineEdit::textEdited, this, &LineEdit::editedByUser);
}

void LineEdit::showText(const TextBox& box) {
    if (const QString shown = toQt(box.text()); shown != text())
        setText(shown);
}

QSize LineEdit::sizeHint() const {
    QSize size = QLineEdit::sizeHint();
    if (characters_ != 0)
        size.setWidth(fontMetrics().averageCharWidth() * (characters_ + 2) + size.height() / 2);
    return size;
}

QSize LineEdit::minimumSizeHint() const {
    return characters_ == 0 ? QLineEdit::minimumSizeHint() : sizeHint();
}

LinesEdit::LinesEdit(QWidget& parent) : QPlainTextEdit(&parent) {
    connect(this, &QPlainTextEdit::textChanged, this, [this] { emit editedByUser(lines()); });
}

/// The text with its own blanks: toPlainText() would make those that do not break to usual ones.
QString LinesEdit::lines() const {
    return document()->toRawText().replace(QChar::ParagraphSeparator, '\n').replace(QChar::LineSeparator, '\n');
}

void LinesEdit::showText(const TextBox& box) {
    const QString shown = linesToQt(box.text());
    if (shown == lines())
        return;
    setPlainText(shown);
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
    return fontMetrics().lineSpacing() * lines + 2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
}

QSize LinesEdit::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 30, heightOf(6)};
}

QSize LinesEdit::minimumSizeHint() const {
    return {fontMetrics().averageCharWidth() * 12, heightOf(3)};
}

}  // namespace tallybrook
