#pragma once

#include "desktop/MenuBarView.h"

#include <QWidget>
#include <map>

class QPushButton;

namespace tallybrook {

/// The menus of a screen laid out on its window, for a screen that has nothing else to be used: each entry as
/// a button below the name of its menu. The keyboard reaches them through the menu bar, as ever.
class MenuPage : public QWidget {
public:
    MenuPage(const Screen& screen, const MenuBarView& menus);

    /// Shows what the entries are by now.
    void refresh();

private:
    void addEntries(const Menu& menu, const QString& keys, QLayout& column);
    void addButton(const Menu& entry, const QString& keys, QLayout& column);

    const MenuBarView& menus_;
    std::map<const Menu*, QPushButton*> buttons_;
};

}  // namespace tallybrook
