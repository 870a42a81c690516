#include "desktop/MenuBarView.h"

#include "controls/Keyboard.h"
#include "controls/Screen.h"
#include "desktop/QtText.h"

#include <QMenu>

namespace tallybrook {

namespace {

/// The shortcut is only shown: the keys are the screen's.
QString captionOf(const Menu& menu) {
    const std::string keys = person::keysOf(menu);
    return toQt(menu.caption()) + (keys.empty() ? QString() : "\t" + toQt(keys));
}

}  // namespace

MenuBarView::MenuBarView(const Screen& screen, QMenuBar& bar,
                         const std::function<void(Control&)>& triggered) {
    for (Menu* const menu : screen.menuBar())
        add(*menu, bar, triggered);
}

template <typename Above>
void MenuBarView::add(Menu& menu, Above& above, const std::function<void(Control&)>& triggered) {
    if (menu.isEntry()) {
        QAction* const action = above.addAction(captionOf(menu));
        actions_[&menu] = action;
        QObject::connect(action, &QAction::triggered, action, [&menu, triggered] { triggered(menu); });
        return;
    }
    QMenu* const inner = above.addMenu(captionOf(menu));
    actions_[&menu] = inner->menuAction();
    for (Menu* const entry : menu.entries())
        add(*entry, *inner, triggered);
}

void MenuBarView::refresh() {
    for (const auto& [menu, action] : actions_) {
        action->setText(captionOf(*menu));
        action->setEnabled(menu->isEnabled());
        action->setVisible(menu->isVisible());
    }
}

QAction* MenuBarView::actionOf(const Control& control) const {
    const auto found = control.kind() == Control::Kind::Menu
                           ? actions_.find(static_cast<const Menu*>(&control))
                           : actions_.end();
    return found == actions_.end() ? nullptr : found->second;
}

}  // namespace tallybrook
