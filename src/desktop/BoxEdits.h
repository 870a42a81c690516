#pragma once

#include "controls/Control.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QValidator>

namespace tallybrook {

/// Keeps what is typed or pasted into a box within its limit: what is too much of it is left out.
class LimitedText : public QValidator {
public:
    explicit LimitedText(QObject* parent) : QValidator(parent) {}
    /// The most characters; 0 for no limit.
    void setLimit(qsizetype limit) { limit_ = limit; }
    State validate(QString& input, int& position) const override;

private:
    qsizetype limit_ = 0;
};

/// A box of one line, as wide as the number of characters that its control asks for.
class LineEdit : public QLineEdit {
public:
    LineEdit(QWidget& parent, const TextBox& box);
    /// Has `told` called with what is shown whenever it is changed by other than show(): by the user, or by a
    /// screen reader for the user.
    template <typename Told>
    void whenEdited(Told told) {
        connect(this, &QLineEdit::textChanged, this, told);
    }
    /// The box's text as the toolkit has it.
    [[nodiscard]] static QString textOf(const TextBox& box);
    [[nodiscard]] QString shown() const { return text(); }
    /// Shows a text, which may be longer than the most characters that can be typed, and stays so until it is
    /// typed over; any number can be for a limit of 0.
    void show(const QString& text, qsizetype limit);
    /// Whether an edit that is being told put something in the place of all that was shown: the toolkit tells
    /// of the selection after the text.
    [[nodiscard]] static bool hasReplacedAll(const TextBox& box) { return box.isAllSelected(); }
    /// Nothing is selected, and the text is seen from its beginning.
    void selectNothing() { home(false); }
    [[nodiscard]] bool isAllSelected() const { return hasSelectedText() && selectedText() == text(); }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    LimitedText* limited_;
    int characters_;  // 0 for as wide as there is room
};

/// A box of several lines.
class LinesEdit : public QPlainTextEdit {
public:
    LinesEdit(QWidget& parent, const TextBox& box)
        : QPlainTextEdit(&parent), characters_(box.options().width) {}
    template <typename Told>
    void whenEdited(Told told) {
        connect(this, &QPlainTextEdit::textChanged, this, [this, told] { told(shown()); });
    }
    [[nodiscard]] static QString textOf(const TextBox& box);
    [[nodiscard]] QString shown() const;
    /// Shows a text. Boxes of several lines have no limit of their own.
    void show(const QString& text, qsizetype limit);
    /// As with boxes of one line, but that here the toolkit tells of the selection before the text.
    [[nodiscard]] bool hasReplacedAll(const TextBox& /*box*/) const { return wasAllSelected_; }
    void selectNothing();
    [[nodiscard]] bool isAllSelected() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] int heightOf(int lines) const;

    int characters_;               // 0 for as wide as usual
    bool wasAllSelected_ = false;  // before the last key
};

}  // namespace tallybrook
