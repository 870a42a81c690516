#pragma once

#include "desktop/MenuBarView.h"

#include <QWidget>
#include <vector>

class QBoxLayout;
class QKeyEvent;

namespace tallybrook {

class MenuEntry;

/// The menus of a screen laid out on its window, for a screen that has nothing else to be used: the entries
/// of each below its name. Tab and the arrow keys walk through them, which the screen knows nothing of; its
/// own keys reach them through the menu bar, as ever.
class MenuPage : public QWidget {
public:
    MenuPage(const Screen& screen, const MenuBarView& menus);

    /// Shows what the entries are by now.
    void refresh();
    /// Does what a key does on the page: walks on, or presses the entry that has the focus. False if it does
    /// nothing here.
    bool press(const QKeyEvent& event);

private:
    struct Shown {
        const Menu* entry;
        MenuEntry* button;
        int column;
    };

    QBoxLayout* addColumn(const Menu& menu);
    void addEntries(const Menu& menu, const QString& keys, QBoxLayout& column);
    void addEntry(const Menu& entry, const QString& keys, QBoxLayout& column);

    [[nodiscard]] MenuEntry* focused() const;
    [[nodiscard]] std::vector<Shown> usable() const;
    [[nodiscard]] MenuEntry* reachedBy(int key) const;
    [[nodiscard]] MenuEntry* besideFocused(int columns) const;

    const Screen& screen_;
    const MenuBarView& menus_;
    std::vector<Shown> entries_;
    int columns_ = 0;
};

}  // namespace tallybrook
