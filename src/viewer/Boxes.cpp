#include "viewer/Boxes.h"

#include <QDir>
#include <QMessageBox>

namespace tallybrook {

void tellFailure(QWidget* window, const QString& what, const QString& file, const QString& reason) {
    QMessageBox box(QMessageBox::Critical, "Tallybrook", {}, QMessageBox::Ok, window);
    box.setTextFormat(Qt::PlainText);  // the name of a file may look like markup
    box.setText(what + "\n\n" + QDir::toNativeSeparators(file) + "\n\n" + reason);
    box.exec();
}

}  // namespace tallybrook
