#include "desktop/ScreenWindow.h"

#include "controls/Keyboard.h"
#include "controls/Person.h"
#include "controls/Rack.h"
#include "desktop/KeyNames.h"
#include "desktop/LayoutBuilder.h"
#include "desktop/QtText.h"
#include "desktop/Spoken.h"
#include "runtime/TextForms.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QBoxLayout>
#include <QCloseEvent>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>
#include <QWindow>
#include <algorithm>
#include <cmath>
#include <utility>

namespace tallybrook {

namespace {

constexpr QMargins kMargins{18, 14, 18, 4};  // around the content, in pixels; the foot is below it
constexpr int kBetweenBlocks = 14;
constexpr int kFrameOfStatus = 3;  // what the toolkit leaves beside the texts of a status bar
constexpr QSize kSmallest{440, 260};
constexpr int kReserveOfRack = 8;        // pixels of its height, for letters that are rounded to whole ones
constexpr QMargins kFrame{4, 28, 4, 4};  // room that the frame of a window takes, with its title bar

bool isTextBox(const Control* control) {
    return control != nullptr && control->kind() == Control::Kind::TextBox;
}

/// The screen, and the product where the screen does not name it.
QString titleOf(const Screen& screen) {
    const QString caption = toQt(screen.caption());
    const QString product = QString::fromUtf8(kProductName);
    return caption.contains(product) ? caption : caption + " - " + product;
}

/// Where something begins that is to lie from `begin` to `end` at most: as near as can be to where it is
/// wanted. What is wanted before `begin` may stay there.
int beginOf(int wanted, int length, int begin, int end) {
    return std::max(std::min(wanted, end - length), std::min(wanted, begin));
}

/// Has a widget take in that its parts ask for other room now: the innermost first, each of which tells what
/// is around it.
void settleLayouts(const QWidget& widget) {
    for (QWidget* const part : widget.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        settleLayouts(*part);
    if (widget.layout() != nullptr)
        widget.layout()->activate();
}

/// Whether a label says what the control is, since it shows no words of its own.
bool needsLabel(const Control* control) {
    return isTextBox(control) || control->isList();
}

}  // namespace

// --- Building ----------------------------------------------------------------------------------------------

ScreenWindow::ScreenWindow(Screen& screen, ActionTaker& taker)
    : screen_(&screen),
      taker_(taker),
      menus_(screen, *menuBar(), [this](Control& entry) { clicked(entry); }),
      area_(buildContent()),
      saved_(new QLabel) {
    setObjectName(toQt(screen.name()));
    setWindowTitle(titleOf(screen));
    setCentralWidget(area_);
    nameWidgets();
    menuBar()->setAccessibleName("Menu");
    menuBar()->setVisible(!screen.menuBar().empty());
    installEventFilter(this);
    addFoot();
    leaveMenusAtOnce();
    refresh();
}

/// The content can be scrolled, for small displays and large fonts.
QScrollArea* ScreenWindow::buildContent() {
    auto* const content = new QWidget;
    const LayoutBuilder builder(
        [this](Control& control, QWidget& parent) -> QWidget& { return makeWidget(control, parent); });
    QLayout* const layout = builder.build(screen_->layout(), *content);
    layout->setContentsMargins(kMargins);
    layout->setSpacing(kBetweenBlocks);
    if (hasOnlyMenus())
        addMenuPage(static_cast<QBoxLayout&>(*layout));
    content->setLayout(layout);

    auto* const area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    area->setWidget(content);
    return area;
}

void ScreenWindow::addMenuPage(QBoxLayout& layout) {
    page_ = new MenuPage(*screen_, menus_);
    layout.addWidget(page_);
    layout.addStretch(1);
    for (QWidget* const entry : page_->findChildren<QWidget*>())
        entry->installEventFilter(this);
}

/// A line below the content that says when something was stored; empty until then.
void ScreenWindow::addFoot() {
    statusBar()->setSizeGripEnabled(false);
    statusBar()->setAccessibleName("Status");
    statusBar()->setContentsMargins(kMargins.left() - kFrameOfStatus, 0, kMargins.right(), 0);
    saved_->setText(" ");  // as high as any text: to be higher later would leave the content too little room
    statusBar()->addWidget(saved_);
    saved_->hide();
}

void ScreenWindow::tellSaved(DateTime when) {
    saved_->setText("Saved " + toQt(timeOfDay(when)));
    saved_->show();
}

/// Whether a control of some kind stands on the window.
bool ScreenWindow::holds(const std::function<bool(const Control&)>& is) const {
    return std::ranges::any_of(views_, [&](const auto& view) { return is(*view.first); });
}

/// Whether nothing in the content of the window can be used.
bool ScreenWindow::hasOnlyMenus() const {
    return !holds(&Control::isFocusable);
}

QWidget& ScreenWindow::makeWidget(Control& control, QWidget& parent) {
    std::unique_ptr<ControlView>& view = views_[&control];
    view = makeView(control, parent, *this);
    QWidget& widget = view->widget();
    widget.setObjectName(toQt(control.name()));
    widget.setFocusPolicy(control.isFocusable() ? Qt::TabFocus : Qt::NoFocus);
    watch(widget, control);
    if (auto* const area = qobject_cast<QAbstractScrollArea*>(&widget); area != nullptr)
        watch(*area->viewport(), control);
    return view->outerWidget();
}

void ScreenWindow::watch(QWidget& widget, Control& control) {
    widget.installEventFilter(this);
    controls_.insert(&widget, &control);
}

/// Gives boxes and lists the names that they are read aloud with: those that the screen tells, else those of
/// their labels, else their tips.
void ScreenWindow::nameWidgets() {
    for (const auto& [control, view] : views_) {
        if (!control->spokenName().empty())
            tellName(view->widget(), toQt(control->spokenName()));
        else if (needsLabel(control))
            tellName(view->widget(), toQt(control->tip()));
    }
    for (const auto& [control, view] : views_) {
        auto* const label = qobject_cast<QLabel*>(&view->widget());
        const Control* const named = label == nullptr ? nullptr : static_cast<const Label*>(control)->names();
        QWidget* const widget = named == nullptr ? nullptr : widgetOf(*named);
        if (widget == nullptr)
            continue;
        label->setBuddy(widget);
        if (needsLabel(named) && named->spokenName().empty())
            tellName(*widget, spoken(control->caption()));
    }
}

/// The keyboard is back with the screen as soon as no menu is open: the bar keeps nothing of it.
void ScreenWindow::leaveMenusAtOnce() {
    const auto leave = [this] {
        if (QApplication::activePopupWidget() == nullptr)
            refresh();
    };
    for (const QMenu* const menu : menuBar()->findChildren<QMenu*>())
        connect(menu, &QMenu::aboutToHide, this, leave, Qt::QueuedConnection);
}

QWidget* ScreenWindow::widgetOf(const Control& control) const {
    const auto found = views_.find(&control);
    return found == views_.end() ? nullptr : &found->second->widget();
}

// --- Showing -----------------------------------------------------------------------------------------------

void ScreenWindow::refresh() {
    if (screen_ == nullptr)
        return;
    for (const auto& [control, view] : views_)
        view->refresh();
    menus_.refresh();
    if (page_ != nullptr)
        page_->refresh();
    followFocus();
}

/// Puts the toolkit's focus where the screen has its own. Where it has none the window itself has it:
/// otherwise the toolkit would give it to the first of its widgets.
void ScreenWindow::followFocus() {
    const Control* const focused = screen_->focused();
    QWidget* const target = focused == nullptr ? nullptr : widgetOf(*focused);
    const QWidget* const current = focusWidget();
    if (target == nullptr && page_ != nullptr && page_->isAncestorOf(current))
        return;  // which the screen knows nothing of
    if (target == nullptr)
        return setFocus(Qt::OtherFocusReason);
    if (target == current)
        return;
    target->setFocus(Qt::OtherFocusReason);
    if (QWidget* const group = target->parentWidget(); qobject_cast<QGroupBox*>(group) != nullptr)
        area_->ensureWidgetVisible(group);
    area_->ensureWidgetVisible(target);
}

void ScreenWindow::bringToFront() {
    if (isMinimized())
        showNormal();
    raise();
    activateWindow();
}

void ScreenWindow::letGo() {
    screen_ = nullptr;
    views_.clear();
    hide();
}

// --- Place and size ----------------------------------------------------------------------------------------

void ScreenWindow::present() {
    if (memory().isMaximised())
        showMaximized();
    else
        showNormal();
}

void ScreenWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    windowHandle()->removeEventFilter(this);
    windowHandle()->installEventFilter(this);
    area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    if (!usual_.isValid())
        measure();
    if (!isMaximized() && !event->spontaneous())
        takePlace();
    useRoom();
}

void ScreenWindow::hideEvent(QHideEvent* event) {
    QMainWindow::hideEvent(event);
    if (!event->spontaneous())
        remember();
}

/// Keeps what the user has changed: not what the window has come to by itself.
void ScreenWindow::remember() {
    if (isMinimized())
        return;
    memory().keepMaximised(isMaximized());
    if (isMaximized() || !size_.isValid())
        return;
    if (size() != size_)
        memory().keepSize(objectName(), size());
    if (geometry().topLeft() != place_)
        memory().keepPlace(geometry().topLeft());
}

/// Where the windows were left, in the middle otherwise, and in sight with their title bars. Places are those
/// of what is inside the frame: how large the frame is, is known only once a window has been seen.
void ScreenWindow::takePlace() {
    if (!size_.isValid())
        takeUsualSize();
    if (const QSize kept = memory().sizeOf(objectName()); kept.isValid())
        resize(kept.boundedTo(screen()->availableSize().shrunkBy(kFrame)));
    size_ = size();
    const std::optional<QPoint> kept = memory().place();
    const QScreen* const left = kept ? QGuiApplication::screenAt(*kept) : nullptr;
    const QRect display = (left == nullptr ? screen() : left)->availableGeometry();
    const QRect free = display.marginsRemoved(kFrame);
    const QPoint middle = display.center() - rect().center();
    const QPoint wanted =
        left != nullptr ? *kept : QPoint(std::max(middle.x(), free.left()), std::max(middle.y(), free.top()));
    place_ = {beginOf(wanted.x(), width(), free.left(), free.right() + 1),
              beginOf(wanted.y(), height(), free.top(), free.bottom() + 1)};
    setGeometry({place_, size()});
}

void ScreenWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    useRoom();
}

/// A grid takes all the room that there is, a rack grows with its window, and a page of menus to some degree;
/// anything else is no wider than is read with ease, and stands in the middle. Where all of it is too narrow,
/// parts go below each other.
void ScreenWindow::useRoom() {
    constexpr int kReadable = 92;   // characters
    constexpr double kLoose = 1.1;  // of the room that a rack asks for
    if (!usual_.isValid())
        return;
    if (page_ != nullptr)
        enlarge(scaleOfPage());
    const bool isGrid = holds([](const Control& control) { return control.kind() == Control::Kind::Grid; });
    if (holds(isPin)) {
        enlarge(fittingScale());
        if (!standBeside()) {
            enlarge(1);
            standBeside();
        }
        area_->widget()->setMaximumSize(area_->widget()->sizeHint() * kLoose);
    } else if (standBeside() && !isGrid) {
        area_->widget()->setMaximumWidth(
            std::max(area_->widget()->sizeHint().width(), kReadable * fontMetrics().averageCharWidth()));
    }
}

/// How wide the content can be, beside the bar that scrolls it where it is too high.
int ScreenWindow::roomAcross() const {
    const bool isTooHigh = area_->widget()->minimumSizeHint().height() > area_->height();
    const int bar = isTooHigh ? area_->verticalScrollBar()->sizeHint().width() : 0;
    return area_->width() - bar - kMargins.left() - kMargins.right();
}

/// Has the parts of each row stand beside each other, or below where the row is too wide. True if none is.
bool ScreenWindow::standBeside() {
    QLayout& content = *area_->widget()->layout();
    const auto rows = content.findChildren<QBoxLayout*>(LayoutBuilder::kRowName, Qt::FindDirectChildrenOnly);
    const auto turn = [&content](QBoxLayout& row, QBoxLayout::Direction direction) {
        row.setDirection(direction);
        const bool isBelow = direction == QBoxLayout::TopToBottom;
        if (auto* const buttons = row.findChild<QLayout*>(LayoutBuilder::kButtonsName); buttons != nullptr)
            row.setAlignment(buttons, isBelow ? Qt::AlignLeft : Qt::Alignment());  // as wide as usual
        content.invalidate();  // a row tells nobody that it asks for other room now
    };
    const auto isTooWide = [this](const QBoxLayout* row) {
        return row->direction() == QBoxLayout::LeftToRight && row->minimumSize().width() > roomAcross();
    };
    for (QBoxLayout* const row : rows)
        turn(*row, QBoxLayout::LeftToRight);
    bool fits = true;
    for (auto row = std::ranges::find_if(rows, isTooWide); row != rows.end();
         row = std::ranges::find_if(rows, isTooWide)) {
        turn(**row, QBoxLayout::TopToBottom);
        fits = false;
    }
    return fits;
}

/// Takes how much room the content asks for.
void ScreenWindow::measure() {
    area_->widget()->layout()->activate();  // takes in what has changed since the window was built
    usual_ = area_->widget()->sizeHint();
    if (!holds(isPin))
        return;
    enlarge(2);
    twice_ = area_->widget()->sizeHint();
    enlarge(1);
}

/// How much larger than usual the letters of a rack can be; a little smaller where that saves the scrolling.
double ScreenWindow::fittingScale() const {
    constexpr double kStep = 20;  // parts of the usual size
    constexpr double kLeast = 0.75;
    constexpr double kMost = 2.5;
    const auto scaleFor = [](int room, int once, int twice) {
        return 1 + static_cast<double>(room - once) / (twice - once);
    };
    const double wide = scaleFor(area_->width(), usual_.width(), twice_.width());
    const double high = scaleFor(area_->height() - kReserveOfRack, usual_.height(), twice_.height());
    return std::clamp(std::floor(std::min(wide, high) * kStep) / kStep, kLeast, kMost);
}

/// How much larger than usual the letters of a page of menus are, where it would be lost on a large window.
double ScreenWindow::scaleOfPage() const {
    constexpr double kFilled = 0.4;  // of the window
    constexpr double kMost = 1.6;
    const double wide = kFilled * area_->width() / usual_.width();
    const double high = kFilled * area_->height() / usual_.height();
    return std::clamp(std::min(wide, high), 1.0, kMost);
}

void ScreenWindow::enlarge(double scale) {
    if (scale == scale_)
        return;
    scale_ = scale;
    QFont larger = font();
    if (larger.pointSizeF() > 0)
        larger.setPointSizeF(larger.pointSizeF() * scale);
    else
        larger.setPixelSize(static_cast<int>(larger.pixelSize() * scale));
    area_->widget()->setFont(larger);
    refresh();
    settleLayouts(*area_->widget());
}

/// As large as its content asks for and the display allows.
void ScreenWindow::takeUsualSize() {
    const QSize largest = screen()->availableSize().shrunkBy(kFrame);
    area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QSize wanted = usual_ + QSize(0, menuBar()->sizeHint().height() + statusBar()->sizeHint().height());
    if (wanted.height() > largest.height())
        wanted.rwidth() += area_->verticalScrollBar()->sizeHint().width();
    resize(wanted.expandedTo(kSmallest).boundedTo(largest));
    layout()->activate();  // only now the menu bar is as high as it will be
    const int reserve = holds(isPin) ? kReserveOfRack : 0;
    const int high = std::max(usual_.height() + reserve, area_->widget()->sizeHint().height());
    const int missing = std::max(0, high - area_->height());
    resize((size() + QSize(0, missing)).boundedTo(largest));
    area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
}

void ScreenWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange)
        setAttribute(Qt::WA_KeyboardFocusChange);  // the focus is seen, be it the mouse that brought it there
    if (event->type() == QEvent::PaletteChange)
        refresh();
    const bool isNormal = (windowState() & ~Qt::WindowStates(Qt::WindowActive)) == Qt::WindowNoState;
    if (event->type() == QEvent::WindowStateChange && isVisible() && isNormal && !size_.isValid())
        takePlace();  // it came up maximised
}

// --- What the user does ------------------------------------------------------------------------------------

bool ScreenWindow::eventFilter(QObject* watched, QEvent* event) {
    if (screen_ == nullptr)
        return event->isInputEvent();
    const Control* const control = controls_.value(watched);
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            return mousePressed(watched, static_cast<const QMouseEvent&>(*event));
        case QEvent::MouseMove:
            return watched == swallowed_;
        case QEvent::MouseButtonRelease:
            return std::exchange(swallowed_, nullptr) == watched;
        case QEvent::ContextMenu:
            return isTextBox(control) && !control->hasFocus();
        case QEvent::ShortcutOverride:
            event->setAccepted(isShortcut(static_cast<const QKeyEvent&>(*event)));
            return event->isAccepted();
        case QEvent::KeyPress:
            return watched == focusWidget() && keyPressed(static_cast<const QKeyEvent&>(*event));
        case QEvent::FocusIn:
            if (control != nullptr && !control->hasFocus())
                focusMoved(*controls_.value(watched), static_cast<const QFocusEvent&>(*event).reason());
            else if (watched == this)
                refreshSoon();  // the window came to the front, and not yet what has the focus on it
            return false;
        default:
            return false;
    }
}

/// A press reaches the window first, if it is a mouse's, and then the widget.
bool ScreenWindow::mousePressed(QObject* watched, const QMouseEvent& event) {
    if (watched == windowHandle()) {
        isMouse_ = true;
        return false;
    }
    const bool isMouse = std::exchange(isMouse_, false);
    Control* const control = controls_.value(watched);
    const bool isText = isTextBox(control);
    if (control == nullptr || !control->isFocusable() || (event.button() != Qt::LeftButton && !isText))
        return false;

    pressed_ = nullptr;
    bool goesOn = mayPress(*control);
    const bool isHeld = QApplication::mouseButtons().testFlag(event.button());
    if (goesOn && !isText && isMouse && !isHeld)  // the release has gone to a box that came up meanwhile
        goesOn = releaseAtOnce(watched, *control, event);
    swallowed_ = goesOn ? nullptr : watched;
    return !goesOn;
}

/// Makes up for a release of the mouse that went elsewhere. True if the press may go on to the widget.
bool ScreenWindow::releaseAtOnce(QObject* watched, Control& control, const QMouseEvent& press) {
    if (!control.hasRows()) {
        clicked(control);
        return false;
    }
    QCoreApplication::postEvent(
        watched, new QMouseEvent(QEvent::MouseButtonRelease, press.position(), press.globalPosition(),
                                 press.button(), Qt::NoButton, press.modifiers()));
    return true;
}

/// Lets the focus go where the mouse was pressed. True if the widget may have the press.
bool ScreenWindow::mayPress(Control& control) {
    if (isTextBox(&control))
        return pressOnBox(static_cast<TextBox&>(control));
    return control.hasRows() ? pressOnRows(control) : pressOnButton(control);
}

/// Does what a person did. Behind a box nothing is done: no mouse or key comes there, only assistive
/// technology does.
void ScreenWindow::act(const std::function<void()>& action) {
    if (screen_ == nullptr)
        return;
    if (QApplication::activeModalWidget() == nullptr)
        taker_.perform(action);
    else
        refreshSoon();
}

/// Lets the focus go to the control that the mouse was pressed on.
Arrival ScreenWindow::arriveAt(Control& control) {
    Arrival arrival = Arrival::Refused;  // should the leaving of another control be given up
    act([&] { arrival = person::arrive(control); });
    if (screen_ == nullptr)
        arrival = Arrival::Refused;
    taker_.noteArrival(arrival);
    return arrival;
}

/// True if the click may follow.
bool ScreenWindow::pressOnButton(Control& control) {
    const Arrival arrival = arriveAt(control);
    if (arrival == Arrival::Kept || arrival == Arrival::Refused)
        return false;
    pressed_ = &control;
    return true;
}

/// True if the press may put the cursor somewhere: the first one selects the whole text instead.
bool ScreenWindow::pressOnBox(TextBox& box) {
    const bool wasThere = box.hasFocus();
    return arriveAt(box) == Arrival::Arrived && (wasThere || !box.isAllSelected());
}

/// True if the press may open a list or choose something in it.
bool ScreenWindow::pressOnRows(Control& control) {
    return person::isAtHand(control, arriveAt(control));
}

void ScreenWindow::clicked(Control& control) {
    if (screen_ == nullptr)
        return;
    // What was not pressed by the mouse, but by a screen reader, takes the focus now.
    const bool hasArrived = std::exchange(pressed_, nullptr) == &control || !control.isFocusable();
    act([&] {
        if (hasArrived)
            person::activate(control);
        else
            person::click(control);
    });
}

void ScreenWindow::edited(TextBox& box, const QString& text) {
    act([&] { person::edit(box, text.toStdString()); });
}

void ScreenWindow::selected(TextBox& box, bool all) {
    if (screen_ == nullptr || !box.hasFocus())
        return;
    if (all)
        box.selectAll();
    else
        box.dropSelection();
}

void ScreenWindow::picked(ItemList& list, int index) {
    act([&] { person::pick(list, index); });
}

void ScreenWindow::pickedFolder(FolderList& list, int row) {
    act([&] { person::pickFolder(list, list.rows()[static_cast<std::size_t>(row)].path); });
}

void ScreenWindow::toggledFolder(FolderList& list, int row) {
    act([&] { person::toggleFolder(list, row); });
}

void ScreenWindow::clickedRow(Grid& grid, int row) {
    act([&] { person::selectRow(grid, row); });
}

/// Something else than the screen has moved the focus: a screen reader, which the screen follows as it does
/// the mouse, or the toolkit by itself, which goes back with it, once it is ready.
void ScreenWindow::focusMoved(Control& control, Qt::FocusReason reason) {
    const bool isMeant = reason == Qt::OtherFocusReason;
    QMetaObject::invokeMethod(
        this,
        [this, &control, isMeant] {
            if (screen_ != nullptr && isMeant && !control.hasFocus() && focusWidget() == widgetOf(control))
                arriveAt(control);
            refresh();
        },
        Qt::QueuedConnection);
}

void ScreenWindow::refreshSoon() {
    QMetaObject::invokeMethod(
        this, [this] { refresh(); }, Qt::QueuedConnection);
}

/// A list or grid was clicked twice: what most come for is done.
void ScreenWindow::activated(Control& control) {
    if (screen_ == nullptr || !taker_.hasOwnKeys() || !control.hasFocus())
        return;
    if (Control* const primary = screen_->primary(); primary != nullptr)
        act([primary] { person::click(*primary); });
}

/// Whether the screen itself answers a key, so that the toolkit's own shortcuts must not.
bool ScreenWindow::isShortcut(const QKeyEvent& event) const {
    const person::Key key = keyOf(event);
    return key.alt ? person::reachedBy(*screen_, key) != nullptr : key.name == "Escape" || key.name == "Tab";
}

bool ScreenWindow::keyPressed(const QKeyEvent& event) {
    if (page_ != nullptr && taker_.hasOwnKeys() && page_->press(event))
        return true;
    const person::Key key = keyOf(event);
    person::Press press{.used = true};  // should the screen have given up on it
    act([&] { press = person::press(*screen_, key); });
    taker_.noteArrival(press.arrival);
    if (screen_ == nullptr)
        return true;
    if (key.alt && press.target != nullptr && press.target->kind() == Control::Kind::Menu)
        menuBar()->setActiveAction(actionOf(*press.target));
    if (press.used)
        return true;
    const auto view = views_.find(screen_->focused());
    return view == views_.end() || !view->second->takesKey(key);
}

void ScreenWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    act([this] { person::close(*screen_); });
}

}  // namespace tallybrook
