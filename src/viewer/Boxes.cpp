#include "viewer/Boxes.h"

#include "style/PlainBox.h"

#include <QDir>

namespace tallybrook {

namespace {

void show(QWidget* window, QMessageBox::Icon icon, const QString& text) {
    PlainBox box(icon, "Tallybrook", text, window);
    box.setDefaultButton(box.addButton(QMessageBox::Ok));
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
