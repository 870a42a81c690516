#include "desktop/RetryNotice.h"

#include "desktop/RoomyButton.h"
#include "desktop/Spoken.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tallybrook {

RetryNotice::RetryNotice(QWidget* parent) : QDialog(parent) {
    setObjectName("retryNotice");
    setWindowTitle("Tallybrook");
    setModal(true);  // the windows of a program that waits are of no use

    auto* const buttons = new QHBoxLayout;
    buttons->addStretch(1);
    const auto addButton = [&](const QString& caption, Choice choice) {
        auto* const button = new RoomyButton;
        button->setText(caption);
        button->setAutoDefault(false);  // no key on its way elsewhere must press it
        connect(button, &QPushButton::clicked, this, [this, choice] { choice_ = choice; });
        buttons->addWidget(button);
    };
    addButton("Close Screen", Choice::CloseScreen);
    addButton("End Tallybrook", Choice::EndProgram);

    auto* const content = new QVBoxLayout(this);
    content->setContentsMargins(18, 16, 18, 16);
    content->setSpacing(16);
    const QString text = "Tallybrook is waiting for a record that is not there.";
    content->addWidget(new QLabel(text));
    content->addLayout(buttons);
    setFocus();
    show();
    tellAlert(*this, text);
}

}  // namespace tallybrook
