#include "player/BoxHands.h"

#include "desktop/BoxWindow.h"
#include "player/DesktopHands.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSignalBlocker>
#include <climits>
#include <filesystem>
#include <system_error>
#include <utility>

namespace tallybrook {

namespace {

using Button = QDialogButtonBox::StandardButton;

QPushButton* buttonOf(const QDialog& dialog, Button button) {
    const auto* const buttons = dialog.findChild<QDialogButtonBox*>();
    return buttons == nullptr ? nullptr : buttons->button(button);
}

/// Clicks a button of the dialog; false where it has no such button.
bool clickButton(const QDialog& dialog, Button button) {
    QPushButton* const found = buttonOf(dialog, button);
    if (found != nullptr)
        hands::click(*found);
    return found != nullptr;
}

bool answerBox(QMessageBox& box, Answer answer) {
    QAbstractButton* const button = box.button(BoxWindow::buttonOf(answer));
    if (button != nullptr)
        hands::click(*button);
    return button != nullptr;
}

bool replyTo(QInputDialog& dialog, const Reply& reply) {
    if (!reply.text)
        return clickButton(dialog, QDialogButtonBox::Cancel);
    auto* const line = dialog.findChild<QLineEdit*>();
    if (line == nullptr)
        return false;
    hands::typeOver(*line, *reply.text);
    return clickButton(dialog, QDialogButtonBox::Ok);
}

/// Types the path of a file where its name goes. The dialog follows what is typed, and selects and completes
/// what it meets on the way; for the time being it must not.
void typePath(QFileDialog& dialog, QLineEdit& line, const std::string& path) {
    for (QAbstractItemView* const view : dialog.findChildren<QAbstractItemView*>())
        view->clearSelection();
    const QSignalBlocker quiet(line);
    line.setCompleter(nullptr);
    hands::typeOver(line, path);
}

/// Whether the dialog itself would not give the file back: it goes into a folder, and waits for a shorter
/// name.
bool isHeldBack(const std::filesystem::path& file) {
    std::error_code ignored;
    return std::filesystem::is_directory(file, ignored) || file.filename().native().size() > NAME_MAX;
}

bool chooseIn(QFileDialog& dialog, const Choice& choice) {
    if (!choice.file)
        return clickButton(dialog, QDialogButtonBox::Cancel);
    const Button accepts =
        dialog.acceptMode() == QFileDialog::AcceptSave ? QDialogButtonBox::Save : QDialogButtonBox::Open;
    auto* const line = dialog.findChild<QLineEdit*>("fileNameEdit");
    QPushButton* const button = buttonOf(dialog, accepts);
    if (line == nullptr || button == nullptr)
        return false;
    // The choice is taken as it stands, be it a file or not.
    dialog.setFileMode(QFileDialog::AnyFile);
    typePath(dialog, *line, choice.file->string());
    button->setEnabled(true);
    if (isHeldBack(*choice.file))
        static_cast<QDialog&>(dialog).done(QDialog::Accepted);
    else
        hands::click(*button);
    return true;
}

}  // namespace

BoxHands::BoxHands() {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { lookForBox(); });
}

void BoxHands::plan(Planned answer) {
    planned_ = std::move(answer);
    timer_.start(0);
}

void BoxHands::lookForBox() {
    const QPointer<QWidget> box = QApplication::activeModalWidget();
    if (!box)
        return;
    timer_.stop();
    const bool answered = answer(*box);
    // The pointer notices that the answer has put the box away.
    // cppcheck-suppress identicalConditionAfterEarlyExit
    if (!box || (answered && !box->isVisible()))
        return;
    failure_ = "the window \"" + box->windowTitle().toStdString() + "\" does not take the answer";
    if (auto* const dialog = qobject_cast<QDialog*>(box); dialog != nullptr)
        dialog->reject();
}

bool BoxHands::answer(QWidget& box) {
    if (const auto* const answer = std::get_if<Answer>(&planned_)) {
        auto* const window = qobject_cast<QMessageBox*>(&box);
        return window != nullptr && answerBox(*window, *answer);
    }
    if (const auto* const reply = std::get_if<Reply>(&planned_)) {
        auto* const window = qobject_cast<QInputDialog*>(&box);
        return window != nullptr && replyTo(*window, *reply);
    }
    auto* const window = qobject_cast<QFileDialog*>(&box);
    return window != nullptr && chooseIn(*window, std::get<Choice>(planned_));
}

}  // namespace tallybrook
