#pragma once

#include <QDialog>

namespace tallybrook::keeper {

/// Shows a longer text with columns, such as what came of an old logbook.
class WordsDialog : public QDialog {
public:
    WordsDialog(const QString& title, const QString& words, QWidget* parent);
};

}  // namespace tallybrook::keeper
