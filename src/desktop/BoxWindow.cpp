#include "desktop/BoxWindow.h"

#include "desktop/QtText.h"
#include "desktop/Spoken.h"

#include <QClipboard>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
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
    : QMessageBox(parent), mustBeAnswered_(box.buttons == Buttons::YesNo) {
    setObjectName("messageBox");
    setWindowTitle(toQt(box.title));
    setTextFormat(Qt::PlainText);
    setText(linesToQt(box.text));
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    tellDescription(*this, text());
    setIcon(iconOf(box.icon));
    for (const Answer answer : answersOf(box.buttons))
        addButton(buttonOf(answer));
    setDefaultButton(buttonOf(box.defaultAnswer()));
    setWindowModality(Qt::ApplicationModal);
    setWindowFlag(Qt::WindowCloseButtonHint, !mustBeAnswered_);
    layOut();
}

/// A short text stands beside the middle of its icon, whatever room the buttons take below them. The toolkit
/// sets it in a little, which is all the room that a text without an icon needs.
void BoxWindow::layOut() {
    constexpr QMargins kMargins{18, 16, 18, 14};
    auto& grid = dynamic_cast<QGridLayout&>(*layout());
    grid.setContentsMargins(icon() == NoIcon ? 0 : kMargins.left(), kMargins.top(), kMargins.right(),
                            kMargins.bottom());
    grid.setVerticalSpacing(kMargins.top());
    grid.setColumnStretch(grid.columnCount() - 1, 1);
    auto* const text = findChild<QLabel*>("qt_msgbox_label");
    const int height = findChild<QLabel*>("qt_msgboxex_icon_label")->sizeHint().height();
    const bool isShort = icon() != NoIcon && text->sizeHint().height() <= height;
    text->setAlignment(Qt::AlignLeft | (isShort ? Qt::AlignVCenter : Qt::AlignTop));
    grid.addWidget(text, 0, grid.columnCount() - 1, 2, 1);  // as the icon
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

/// Where some of the text is selected, its label has taken the key for copying itself.
void BoxWindow::keyPressEvent(QKeyEvent* event) {
    if (mustBeAnswered_ && event->key() == Qt::Key_Escape)
        return;
    if (event->matches(QKeySequence::Copy))
        return QGuiApplication::clipboard()->setText(text());
    QMessageBox::keyPressEvent(event);
}

void BoxWindow::closeEvent(QCloseEvent* event) {
    if (mustBeAnswered_)
        return event->ignore();
    QMessageBox::closeEvent(event);
}

}  // namespace tallybrook
