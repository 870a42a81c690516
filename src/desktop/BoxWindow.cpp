#include "desktop/BoxWindow.h"

#include "desktop/QtText.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <array>
#include <utility>

namespace tallybrook {

namespace {

constexpr std::array<std::pair<Answer, QMessageBox::StandardButton>, 5> kButtons{{
    {Answer::OK, QMessageBox::Ok},
    {Answer::Cancel, QMessageBox::Cancel},
    {Answer::Yes, QMessageBox::Yes},
    {Answer::No, QMessageBox::No},
    {Answer::Retry, QMessageBox::Retry},
}};

QMessageBox::Icon iconOf(Icon icon) {
    switch (icon) {
        case Icon::Question:
            return QMessageBox::Question;
        case Icon::Information:
            return QMessageBox::Information;
        case Icon::Warning:
            return QMessageBox::Warning;
        case Icon::Critical:
            return QMessageBox::Critical;
        case Icon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

}  // namespace

BoxWindow::BoxWindow(const MessageBox& box, QWidget* parent)
    : PlainBox(iconOf(box.icon), toQt(box.title), linesToQt(box.text), parent),
      mustBeAnswered_(box.buttons == Buttons::YesNo) {
    setObjectName("messageBox");
    for (const Answer answer : answersOf(box.buttons))
        addButton(buttonOf(answer));
    setDefaultButton(buttonOf(box.defaultAnswer()));
    setWindowModality(Qt::ApplicationModal);
    setWindowFlag(Qt::WindowCloseButtonHint, !mustBeAnswered_);
}

QMessageBox::StandardButton BoxWindow::buttonOf(Answer answer) {
    for (const auto& [one, button] : kButtons) {
        if (one == answer)
            return button;
    }
    return NoButton;
}

Answer BoxWindow::ask() {
    const int pressed = exec();
    for (const auto& [answer, button] : kButtons) {
        if (button == pressed)
            return answer;
    }
    return Answer::Cancel;
}

void BoxWindow::keyPressEvent(QKeyEvent* event) {
    if (mustBeAnswered_ && event->key() == Qt::Key_Escape)
        return;
    PlainBox::keyPressEvent(event);
}

void BoxWindow::closeEvent(QCloseEvent* event) {
    if (mustBeAnswered_)
        return event->ignore();
    PlainBox::closeEvent(event);
}

}  // namespace tallybrook
