#pragma once

#include "desktop/ActionTaker.h"
#include "desktop/ControlView.h"
#include "desktop/MenuBarView.h"
#include "desktop/MenuPage.h"
#include "runtime/DateTime.h"

#include <QHash>
#include <QMainWindow>
#include <functional>
#include <map>
#include <memory>

class QBoxLayout;
class QLabel;
class QScrollArea;

namespace tallybrook {

/// One screen as a window. The screen is the master of everything, its focus included: the window passes what
/// its user does to it, and then shows what has become of it.
class ScreenWindow : public QMainWindow, private ViewListener {
public:
    ScreenWindow(Screen& screen, ActionTaker& taker);

    /// Shows all that the screen holds by now.
    void refresh();
    /// Comes up where the user has left the windows.
    void present();
    void bringToFront();
    /// Says at its foot that what was entered has been stored.
    void tellSaved(DateTime when);
    /// The screen is going away: the window must not touch it again, is seen no more and takes nothing more.
    void letGo();

    /// The widget of a control; nullptr for menus and for what the layout leaves out.
    [[nodiscard]] QWidget* widgetOf(const Control& control) const;
    /// The action of a menu or an entry; nullptr for other controls.
    [[nodiscard]] QAction* actionOf(const Control& control) const { return menus_.actionOf(control); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    QScrollArea* buildContent();
    void addMenuPage(QBoxLayout& layout);
    [[nodiscard]] bool hasOnlyMenus() const;
    QWidget& makeWidget(Control& control, QWidget& parent);
    void watch(QWidget& widget, Control& control);
    void nameWidgets();
    void leaveMenusAtOnce();
    void addFoot();
    void takeUsualSize();
    [[nodiscard]] bool holds(const std::function<bool(const Control&)>& is) const;
    void useRoom();
    [[nodiscard]] int roomAcross() const;
    bool standBeside();
    void measure();
    [[nodiscard]] double fittingScale() const;
    [[nodiscard]] double scaleOfPage() const;
    void enlarge(double scale);
    void takePlace();
    void remember();
    void followFocus();
    void focusMoved(Control& control, Qt::FocusReason reason);
    void refreshSoon();

    // What the views tell.
    void clicked(Control& control) override;
    void edited(TextBox& box, const QString& text) override;
    void selected(TextBox& box, bool all) override;
    void picked(ItemList& list, int index) override;
    void pickedFolder(FolderList& list, int row) override;
    void toggledFolder(FolderList& list, int row) override;
    void clickedRow(Grid& grid, int row) override;
    void activated(Control& control) override;
    void disturbed() override { refresh(); }
    WindowMemory& memory() override { return taker_.memory(); }

    // What the event filter sees; true where the widget must not see it.
    bool mousePressed(QObject* watched, const QMouseEvent& event);
    bool keyPressed(const QKeyEvent& event);

    void act(const std::function<void()>& action);
    Arrival arriveAt(Control& control);
    bool mayPress(Control& control);
    bool pressOnButton(Control& control);
    bool pressOnBox(TextBox& box);
    bool pressOnRows(Control& control);
    bool releaseAtOnce(QObject* watched, Control& control, const QMouseEvent& press);
    [[nodiscard]] bool isShortcut(const QKeyEvent& event) const;

    Screen* screen_;
    ActionTaker& taker_;
    std::map<const Control*, std::unique_ptr<ControlView>> views_;
    QHash<QObject*, Control*> controls_;  // by what receives their events
    MenuBarView menus_;
    MenuPage* page_ = nullptr;  // only of a screen that has nothing but menus
    QScrollArea* area_;
    QLabel* saved_;
    QSize size_;        // that the window has taken by itself; invalid before
    QPoint place_;      // where it has put itself
    QSize usual_;       // of the content in letters of the usual size; invalid before the window was shown
    QSize twice_;       // in letters of twice that size, where there is a rack
    double scale_ = 1;  // of the content's letters

    QObject* swallowed_ = nullptr;      // where the mouse was pressed, if the widget has not seen it
    const Control* pressed_ = nullptr;  // the control that the mouse was pressed on, and may be clicked
    bool isMouse_ = false;              // whether the press on its way comes from a mouse
};

}  // namespace tallybrook
