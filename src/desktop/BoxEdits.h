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
    /// Has `told` called with the text whenever it is changed by other than showText(): by the user, or by a
    /// screen reader for the user.
    template <typename Told>
    void whenEdited(Told told) {
        connect(this, &QLineEdit::textChanged, this, told);
    }
    void showText(const TextBox& box);
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
        connect(this, &QPlainTextEdit::textChanged, this, [this, told] { told(lines()); });
    }
    void showText(const TextBox& box);
    void selectNothing();
    [[nodiscard]] bool isAllSelected() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

private:
    [[nodiscard]] QString lines() const;
    [[nodiscard]] int heightOf(int lines) const;

    int characters_;  // 0 for as wide as usual
};

}  // namespace tallybrook
