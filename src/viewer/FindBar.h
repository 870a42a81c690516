#pragma once

#include <QWidget>
#include <functional>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace tallybrook {

/// The bar where a text to be found is typed. It searches nothing itself.
class FindBar : public QWidget {
public:
    FindBar();

    std::function<void()> onChanged;  ///< the text, or whether case matters
    std::function<void()> onNext;
    std::function<void()> onPrevious;
    std::function<void()> onClose;

    [[nodiscard]] QString sought() const;
    void setSought(const QString& text);
    [[nodiscard]] Qt::CaseSensitivity sensitivity() const;

    /// Tells how the search went; nothing where the text is empty.
    void tell(const QString& words);
    /// Gives the focus to the text, all of it selected.
    void focusText();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QLineEdit* text_;
    QPushButton* previous_;
    QPushButton* next_;
    QCheckBox* matchCase_;
    QLabel* words_;
};

}  // namespace tallybrook
