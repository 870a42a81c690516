#include "desktop/ScreenWindow.h"

#include "desktop/DesktopDisplay.h"
#include "desktop/KeyNames.h"
#include "desktop/LayoutBuilder.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QScreen>
#include <QScrollArea>

namespace tallybrook {

namespace {

bool isTextBox(const Control* control) {
    return control != nullptr && control->kind() == Control::Kind::TextBox;
}

}  // namespace

ScreenWindow::ScreenWindow(Screen& screen, DesktopDisplay& display) : screen_(&screen), display_(display) {
    setObjectName(toQt(screen.name()));
    setWindowTitle(toQt(screen.caption()));
    buildMenuBar();
    buildContent();
    nameBoxes();
    installEventFilter(this);
    refresh();
}

void ScreenWindow::buildContent() {
    auto* const content = new QWidget;
    const LayoutBuilder builder(
        [this](Control& control, QWidget& parent) -> QWidget& { return makeWidget(control, parent); });
    QLayout* const layout = builder.build(screen_->layout(), *content);
    layout->setContentsMargins(18, 16, 18, 18);
    content->setLayout(layout);

    auto* const area = new QScrollArea;  // for small displays and large fonts
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(content);
    setCentralWidget(area);
}

QWidget& ScreenWindow::makeWidget(Control& control, QWidget& parent) {
    auto& view = views_[&control];
    view = makeView(control, parent, *this);
    QWidget& widget = view->widget();
    widget.setObjectName(toQt(control.name()));
    widget.setFocusPolicy(control.isFocusable() ? Qt::TabFocus : Qt::NoFocus);
    widget.installEventFilter(this);
    controls_.insert(&widget, &control);
    if (auto* const area = qobject_cast<QAbstractScrollArea*>(&widget); area != nullptr) {
        area->viewport()->installEventFilter(this);
        controls_.insert(area->viewport(), &control);
    }
    return widget;
}

void ScreenWindow::nameBoxes() {
    for (const Control* control : screen_->controls()) {
        if (control->kind() != Control::Kind::Label)
            continue;
        const Control* const named = static_cast<const Label*>(control)->names();
        if (QWidget* const widget = named == nullptr ? nullptr : widgetOf(*named);
            widget != nullptr && isTextBox(named))
            widget->setAccessibleName(toQt(control->caption()).remove('&').trimmed());
    }
}

void ScreenWindow::buildMenuBar() {
    for (Menu* const menu : screen_->menuBar()) {
        QMenu* const top = menuBar()->addMenu(toQt(menu->caption()));
        actions_[menu] = top->menuAction();
        for (Menu* const entry : menu->entries())
            addMenu(*entry, *top);
    }
}

void ScreenWindow::addMenu(Menu& menu, QMenu& above) {
    if (!menu.isEntry()) {
        QMenu* const inner = above.addMenu(toQt(menu.caption()));
        actions_[&menu] = inner->menuAction();
        for (Menu* const entry : menu.entries())
            addMenu(*entry, *inner);
        return;
    }
    // The shortcut is only shown: the keys are the screen's.
    const QString shortcut = menu.shortcut().empty() ? QString() : "\t" + toQt(menu.shortcut());
    QAction* const action = above.addAction(toQt(menu.caption()) + shortcut);
    actions_[&menu] = action;
    connect(action, &QAction::triggered, this, [this, &menu] { clicked(menu); });
}

QWidget* ScreenWindow::widgetOf(const Control& control) const {
    const auto found = views_.find(&control);
    return found == views_.end() ? nullptr : &found->second->widget();
}

QAction* ScreenWindow::actionOf(const Control& control) const {
    const auto found = actions_.find(&control);
    return found == actions_.end() ? nullptr : found->second;
}

void ScreenWindow::letGo() {
    screen_ = nullptr;
    hide();
    deleteLater();
}

void ScreenWindow::refresh() {
    if (screen_ == nullptr)
        return;
    for (const auto& [control, view] : views_)
        view->refresh();
    refreshMenus();
    followFocus();
}

void ScreenWindow::refreshMenus() {
    for (const auto& [control, action] : actions_) {
        action->setEnabled(control->isEnabled());
        action->setVisible(control->isVisible());
    }
}

/// Puts the toolkit's focus where the screen has its own.
void ScreenWindow::followFocus() {
    const Control* const focused = screen_->focused();
    QWidget* const target = focused == nullptr ? nullptr : widgetOf(*focused);
    QWidget* const current = focusWidget();
    if (target != nullptr && target != current)
        target->setFocus(Qt::OtherFocusReason);
    else if (target == nullptr && current != nullptr)
        current->clearFocus();
}

void ScreenWindow::clicked(Control& control) {
    display_.perform([&control] { person::activate(control); });
}

void ScreenWindow::edited(TextBox& box, const QString& text) {
    display_.perform([&box, text] { box.enter(text.toStdString()); });
}

bool ScreenWindow::eventFilter(QObject* watched, QEvent* event) {
    if (screen_ == nullptr)
        return true;
    Control* const control = controls_.value(watched);
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            return control != nullptr && mousePressed(*control);
        case QEvent::ShortcutOverride:
            if (meansSomething(static_cast<const QKeyEvent&>(*event)))
                event->accept();
            return false;
        case QEvent::KeyPress:
            return keyPressed(static_cast<const QKeyEvent&>(*event));
        default:
            return false;
    }
}

/// Lets the focus go to the control that the mouse was pressed on. True if the press has come to nothing
/// else.
bool ScreenWindow::mousePressed(Control& control) {
    if (!control.isFocusable())
        return false;
    if (control.hasFocus()) {
        if (isTextBox(&control))
            static_cast<TextBox&>(control).dropSelection();
        display_.noteArrival(Arrival::Arrived);
        return false;
    }
    Arrival arrival = Arrival::Refused;
    display_.perform([&] { arrival = person::arrive(control); });
    display_.noteArrival(arrival);
    if (arrival == Arrival::Kept || arrival == Arrival::Refused)
        return true;
    return isTextBox(&control);  // the first press selects the whole text
}

/// Whether the screen itself answers a key, so that the toolkit's own shortcuts must not.
bool ScreenWindow::meansSomething(const QKeyEvent& event) const {
    const person::Key key = keyOf(event);
    return key.alt ? person::reachedBy(*screen_, key) != nullptr : key.name == "Escape" || key.name == "Tab";
}

bool ScreenWindow::keyPressed(const QKeyEvent& event) {
    const person::Key key = keyOf(event);
    person::Press press;
    display_.perform([&] { press = person::press(*screen_, key); }, DesktopDisplay::Refresh::IfUsed,
                     &press.used);
    display_.noteArrival(press.arrival);
    if (screen_ != nullptr && !press.used && isTextBox(screen_->focused()) && !key.control && !key.alt)
        static_cast<TextBox*>(screen_->focused())->dropSelection();
    return press.used;
}

void ScreenWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (screen_ != nullptr)
        display_.perform([this] { person::close(*screen_); });
}

void ScreenWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (!placed_)
        placeOnScreen();
    placed_ = true;
}

/// As large as its content asks for and the display allows, in the middle.
void ScreenWindow::placeOnScreen() {
    const QRect available = screen()->availableGeometry();
    const QSize content = static_cast<QScrollArea*>(centralWidget())->widget()->sizeHint();
    const QSize wanted(content.width() + 4, content.height() + menuBar()->sizeHint().height() + 4);
    resize(wanted.expandedTo({480, 360}).boundedTo(available.size() - QSize(8, 32)));
    move(available.center() - rect().center());
}

}  // namespace tallybrook
