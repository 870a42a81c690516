#include "viewer/Boxes.h"

#include <QDir>
#include <QMessageBox>

namespace tallybrook {

namespace {

void show(QWidget* window, QMessageBox::Icon icon, const QString& text) {
    QMessageBox box(icon, "Tallybrook", {}, QMessageBox::Ok, window);
    box.setTextFormat(Qt::PlainText);  // the name of a file may look like markup
    box.setText(text);
    box.exec();
}

}  // namespace

void tell(QWidget* window, const QString& text) {
    show(window, QMessageBox::Information, text);
}

void tellFailure(QWidget* window, const QString& what, const QString& file, const QString& reason) {
    show(window, QMessageBox::Critical, what + "\n\n" + QDir::toNativeSeparators(file) + "\n\n" + reason);
}

}  // namespace tallybrook
