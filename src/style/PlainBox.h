#pragma once

#include <QMessageBox>

class QLabel;

namespace tallybrook {

/// A message box that shows its text as it stands, to be selected and copied. It is never larger than the
/// display: a text that is too long for it is scrolled, and the buttons stay in sight.
class PlainBox : public QMessageBox {
public:
    /// Lines of the text end in "\n".
    PlainBox(Icon icon, const QString& title, const QString& text, QWidget* parent);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void layOut();
    [[nodiscard]] QWidget* placeForText();
    [[nodiscard]] QWidget* scrolledText() const;
    [[nodiscard]] QSize roomForText() const;
    [[nodiscard]] bool isLowerThanIcon(const QLabel& label) const;
};

}  // namespace tallybrook
