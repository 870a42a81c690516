#include "player/DesktopStage.h"

#include "desktop/FolderTreeView.h"
#include "player/DesktopHands.h"
#include "viewer/ReportWindow.h"

#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QCoreApplication>
#include <QPixmap>
#include <QPointer>
#include <QSettings>
#include <QTemporaryDir>
#include <stdexcept>
#include <utility>

namespace tallybrook {

namespace fs = std::filesystem;

namespace {

QAbstractItemView& itemsIn(QWidget& widget) {
    return dynamic_cast<QAbstractItemView&>(widget);
}

}  // namespace

DesktopStage::DesktopStage(std::optional<fs::path> shots) : shots_(std::move(shots)) {
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);  // nobody can reach into those
    if (shots_)
        shots_ = fs::absolute(*shots_);  // a file dialog leaves the current folder elsewhere
}

Arrival DesktopStage::click(Control& control) {
    if (QAction* const action = display_.actionOf(control); action != nullptr)
        return act([action] { action->trigger(); });
    if (control.hasRows())
        return focus(control);  // where in it would be another matter
    QWidget& widget = widgetOf(control);
    return act([&widget] { hands::click(widget); });
}

Arrival DesktopStage::type(TextBox& box, const std::string& text) {
    QWidget& widget = widgetOf(box);
    return act([&] {
        hands::click(widget);
        if (const Arrival arrival = display_.lastArrival(); arrival == Arrival::Arrived) {
            hands::typeOver(widget, text);
            display_.noteArrival(arrival);
        }
    });
}

Arrival DesktopStage::focus(Control& control) {
    QWidget& widget = widgetOf(control);
    return act([&widget] { hands::touch(widget); });
}

Arrival DesktopStage::use(const Control& control, const std::function<void(QWidget& widget)>& action) {
    QWidget& touched = widgetOf(control);
    const QPointer<QWidget> widget(&touched);  // the touch may take it away
    return act([&] {
        hands::touch(touched);
        const Arrival arrival = display_.lastArrival();
        if (arrival != Arrival::Arrived || !widget || !widget->isVisible() || !widget->isEnabled())
            return;
        action(*widget);
        display_.noteArrival(arrival);
    });
}

Arrival DesktopStage::pick(ItemList& list, const std::function<int()>& index) {
    return use(list, [&](QWidget& widget) {
        const int place = index();
        if (auto* const combo = qobject_cast<QComboBox*>(&widget); combo != nullptr)
            return hands::pickFrom(*combo, place);
        QAbstractItemView& items = itemsIn(widget);
        hands::clickItem(items, items.model()->index(place, 0));
    });
}

Arrival DesktopStage::pickFolder(FolderList& list, const std::function<std::string()>& path) {
    return use(list, [&](QWidget& widget) {
        const std::string folder = path();
        display_.perform([&] { list.reveal(folder); });
        hands::clickItem(itemsIn(widget), folderIndex(itemsIn(widget), list.cursor()));
    });
}

Arrival DesktopStage::selectRow(Grid& grid, const std::function<int()>& row) {
    return use(grid, [&](QWidget& widget) {
        QAbstractItemView& rows = itemsIn(widget);
        hands::clickItem(rows, rows.model()->index(row() - 1, 0));
    });
}

Arrival DesktopStage::tab(Screen& screen, bool backwards) {
    return press(screen, backwards ? "Shift+Tab" : "Tab");
}

Arrival DesktopStage::press(Screen& screen, const std::string& key) {
    QWidget& window = windowOf(screen);
    return act([&] {
        hands::pressKey(window, key);
        if (QWidget* const menu = QApplication::activePopupWidget(); menu != nullptr)
            menu->close();
    });
}

void DesktopStage::close(Screen& screen) {
    QWidget& window = windowOf(screen);
    act([&window] { window.close(); });
}

void DesktopStage::takePicture(Screen& screen, const std::string& name) {
    if (shots_)
        save(windowOf(screen), name);
}

void DesktopStage::takeReportPicture(const fs::path& report, const std::string& name) {
    if (!shots_)
        return;
    const QTemporaryDir usual;  // the window as it comes up for the first time
    QSettings settings(usual.filePath("viewer.ini"), QSettings::IniFormat);
    ReportWindow window(settings);
    if (!window.open(QString::fromStdString(report.string())))
        return;
    window.show();
    QCoreApplication::processEvents();
    save(window, name);
}

void DesktopStage::save(QWidget& window, const std::string& name) const {
    fs::create_directories(*shots_);
    const fs::path file = *shots_ / (name + ".png");
    if (!window.grab().save(QString::fromStdString(file.string())))
        throw std::runtime_error("the picture " + file.string() + " cannot be written");
}

QWidget& DesktopStage::widgetOf(const Control& control) const {
    QWidget* const widget = display_.widgetOf(control);
    if (widget == nullptr)
        throw std::runtime_error(control.name() + " is not on the window");
    return *widget;
}

QWidget& DesktopStage::windowOf(const Screen& screen) const {
    QWidget* const window = display_.windowOf(screen);
    if (window == nullptr)
        throw std::runtime_error(screen.name() + " has no window");
    return *window;
}

Arrival DesktopStage::act(const std::function<void()>& action) {
    settle();
    display_.noteArrival(Arrival::Arrived);
    action();
    const Arrival arrival = display_.lastArrival();
    settle();
    return arrival;
}

void DesktopStage::settle() {
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();  // what the events of the window system have posted
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (const std::exception_ptr escaped = display_.takeFailure(); escaped != nullptr)
        std::rethrow_exception(escaped);
    if (const std::optional<std::string> failure = boxes_.takeFailure(); failure)
        throw std::runtime_error(*failure);
}

}  // namespace tallybrook
