#include "keeperwindow/WordsDialog.h"

#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace tallybrook::keeper {

WordsDialog::WordsDialog(const QString& title, const QString& words, QWidget* parent) : QDialog(parent) {
    setWindowTitle(title);
    auto* const text = new QPlainTextEdit(words);
    text->setReadOnly(true);
    text->setTabChangesFocus(true);
    text->setAccessibleName(title);
    QFont columns = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    columns.setPointSizeF(font().pointSizeF());
    text->setFont(columns);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(text, 1);
    column->addWidget(buttons);
    resize(fontMetrics().averageCharWidth() * 110, fontMetrics().height() * 24);
}

}  // namespace tallybrook::keeper
