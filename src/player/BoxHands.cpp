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
#include <utility>

namespace tallybrook {

namespace {

using Button = QDialogButtonBox::StandardButton;

/// Clicks a button of the dialog; false where it has no such button.
bool clickButton(QDialog& dialog, Button button) {
    const auto* const buttons = dialog.findChild<QDialogButtonBox*>();
    QAbstractButton* const found = buttons == nullptr ? nullptr : buttons->button(button);
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

bool chooseIn(QFileDialog& dialog, const Choice& choice) {
    if (!choice.file)
        return clickButton(dialog, QDialogButtonBox::Cancel);
    auto* const line = dialog.findChild<QLineEdit*>("fileNameEdit");
    if (line == nullptr)
        return false;
    // The script is answered as it stands: no question about a file that is there, or is not.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setFileMode(QFileDialog::AnyFile);
    line->setCompleter(nullptr);
    hands::typeOver(*line, choice.file->string());
    for (QAbstractItemView* const view : dialog.findChildren<QAbstractItemView*>())
        view->clearSelection();  // a folder met while typing would go before what is typed
    const bool saves = dialog.acceptMode() == QFileDialog::AcceptSave;
    return clickButton(dialog, saves ? QDialogButtonBox::Save : QDialogButtonBox::Open);
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
    if (answered && (!box || !box->isVisible()))
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
