#pragma once

#include "desktop/ControlView.h"
#include "shell/Person.h"
#include "shell/Screen.h"

#include <QAction>
#include <QHash>
#include <QMainWindow>
#include <map>
#include <memory>

namespace tallybrook {

class DesktopDisplay;

/// One screen as a window. The screen is the master of everything, its focus included: the window passes what
/// its user does to it, and then shows what has become of it.
class ScreenWindow : public QMainWindow, private ViewListener {
public:
    ScreenWindow(Screen& screen, DesktopDisplay& display);

    /// Shows all that the screen holds by now.
    void refresh();
    /// The screen is going away: the window must not touch it again.
    void letGo();

    /// The widget of a control; nullptr for menus and for what the layout leaves out.
    [[nodiscard]] QWidget* widgetOf(const Control& control) const;
    /// The action of a menu entry; nullptr for other controls.
    [[nodiscard]] QAction* actionOf(const Control& control) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void buildContent();
    void buildMenuBar();
    void addMenu(Menu& menu, QMenu& above);
    QWidget& makeWidget(Control& control, QWidget& parent);
    void nameBoxes();
    void placeOnScreen();

    void clicked(Control& control) override;
    void edited(TextBox& box, const QString& text) override;
    bool mousePressed(Control& control);
    bool keyPressed(const QKeyEvent& event);
    bool meansSomething(const QKeyEvent& event) const;
    void refreshMenus();
    void followFocus();

    Screen* screen_;
    DesktopDisplay& display_;
    std::map<const Control*, std::unique_ptr<ControlView>> views_;
    std::map<const Control*, QAction*> actions_;
    QHash<QObject*, Control*> controls_;  // by what their events come to
    bool placed_ = false;
};

}  // namespace tallybrook
