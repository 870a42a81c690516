#include "desktop/Dialogs.h"

#include "desktop/QtText.h"

#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>

namespace tallybrook {

namespace {

/// A pattern as the toolkit has it: no blanks around it, and ".txt" alone means all such files.
QString patternOf(const QString& text) {
    const QString pattern = text.trimmed();
    return pattern.startsWith('.') ? '*' + pattern : pattern;
}

/// The filters as the toolkit has them: "Text files (*.txt *.csv)". In the program's form names and patterns
/// take turns, as in "Text files|*.txt;*.csv", and a name may hold its pattern or not.
QStringList filtersOf(const FileDialog& dialog) {
    const QStringList parts = toQt(dialog.filter).split('|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString name = parts[i].section('(', 0, 0).trimmed();
        QStringList patterns;
        for (const QString& one : parts[i + 1].split(';'))
            patterns << patternOf(one);
        filters << name + " (" + patterns.join(' ') + ")";
    }
    return filters;
}

/// Has a text that is wider than is read with ease go on in the next line.
void breakLines(QLabel& label) {
    constexpr int kReadable = 60;  // characters
    const int widest = kReadable * label.fontMetrics().averageCharWidth();
    if (label.sizeHint().width() <= widest)
        return;
    label.setWordWrap(true);
    label.setMinimumWidth(widest);
    label.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);  // else as wide as its longest word
}

}  // namespace

std::optional<std::string> askForText(const InputBox& box, QWidget* parent) {
    QInputDialog window(parent);
    window.setObjectName("inputBox");
    window.setWindowTitle(toQt(box.title));
    window.setLabelText(linesToQt(box.text));
    for (QLabel* const label : window.findChildren<QLabel*>()) {
        label->setTextFormat(Qt::PlainText);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);  // which leaves "&" as it is, too
        breakLines(*label);
    }
    if (window.exec() != QDialog::Accepted)
        return std::nullopt;
    return window.textValue().toStdString();
}

std::optional<std::filesystem::path> chooseFile(const FileDialog& dialog, QWidget* parent) {
    QFileDialog window(parent, toQt(dialog.title), toQt(dialog.folder));
    window.setObjectName("fileDialog");
    const bool saves = dialog.purpose == FileDialog::Purpose::Save;
    window.setAcceptMode(saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    window.setFileMode(saves ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    // Whoever names a file that is there means to replace it: no question is asked.
    window.setOption(QFileDialog::DontConfirmOverwrite, saves);
    window.setNameFilters(filtersOf(dialog));
    if (!dialog.name.empty())
        window.selectFile(toQt(dialog.name));
    if (window.exec() != QDialog::Accepted)
        return std::nullopt;
    const QFileInfo file(window.selectedFiles().value(0));
    QDir::setCurrent(file.absolutePath());
    return file.filesystemAbsoluteFilePath();
}

}  // namespace tallybrook
