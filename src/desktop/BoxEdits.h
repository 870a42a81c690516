#pragma once

#include "shell/Control.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QValidator>

namespace tallybrook {

/// Keeps what is typed or pasted into a box within its limit: what is too much of it is left out. A text that
/// is too long already stays as it is.
class LimitedText : public QValidator {
    Q_OBJECT

public:
    LimitedText(QObject* parent, const TextBox& box) : QValidator(parent), box_(box) {}
    State validate(QString& input, int& position) const override;

private:
    const TextBox& box_;
};

/// A box of one line, as wide as the number of characters that its control asks for.
class LineEdit : public QLineEdit {
    Q_OBJECT

public:
    LineEdit(QWidget& parent, const TextBox& box);
    void showText(const TextBox& box);
    void selectNothing() { deselect(); }
    [[nodiscard]] bool isAllSelected() const { return hasSelectedText() && selectedText() == text(); }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

signals:
    void editedByUser(const QString& text);

private:
    int characters_;  // 0 for as wide as there is room
};

/// A box of several lines.
class LinesEdit : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit LinesEdit(QWidget& parent);
    void showText(const TextBox& box);
    void selectNothing();
    [[nodiscard]] bool isAllSelected() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

signals:
    void editedByUser(const QString& text);

private:
    [[nodiscard]] QString lines() const;
    [[nodiscard]] int heightOf(int lines) const;
};

}  // namespace tallybrook
