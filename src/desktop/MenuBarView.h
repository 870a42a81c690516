#pragma once

#include "controls/Control.h"

#include <QAction>
#include <QMenuBar>
#include <functional>
#include <map>

namespace tallybrook {

/// The menus of a screen on the menu bar of its window.
class MenuBarView {
public:
    /// `triggered` is told when the user has picked an entry.
    MenuBarView(const Screen& screen, QMenuBar& bar, const std::function<void(Control&)>& triggered);

    /// Shows what the menus hold by now.
    void refresh();
    /// The action of a menu or an entry; nullptr for other controls.
    [[nodiscard]] QAction* actionOf(const Control& control) const;

private:
    /// A bar or a menu: both take menus and actions.
    template <typename Above>
    void add(Menu& menu, Above& above, const std::function<void(Control&)>& triggered);

    std::map<const Menu*, QAction*> actions_;
};

}  // namespace tallybrook
