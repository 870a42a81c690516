#include "desktop/MenuPage.h"

#include "controls/Screen.h"
#include "desktop/QtText.h"
#include "desktop/RoomyButton.h"

#include <QAction>
#include <QLabel>
#include <QVBoxLayout>

namespace tallybrook {

namespace {

constexpr int kBetweenColumns = 24;
constexpr int kBetweenEntries = 8;

/// The keys that open a menu or run an entry, told behind those of the menu above it.
QString keysTo(const Menu& menu, const QString& above) {
    const std::optional<char> letter = accessLetter(menu);
    if (!letter)
        return above;
    return above.isEmpty() ? QString("Alt+%1").arg(*letter) : above + ", " + QChar(*letter);
}

}  // namespace

MenuPage::MenuPage(const Screen& screen, const MenuBarView& menus) : menus_(menus) {
    auto* const columns = new QHBoxLayout(this);
    columns->setSpacing(kBetweenColumns);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->addStretch(1);
    for (const Menu* const menu : screen.menuBar()) {
        auto* const column = new QVBoxLayout;
        column->setSpacing(kBetweenEntries);
        auto* const title = new QLabel(spoken(menu->caption()));
        QFont font = title->font();
        font.setWeight(QFont::DemiBold);
        title->setFont(font);
        column->addWidget(title);
        addEntries(*menu, keysTo(*menu, {}), *column);
        column->addStretch(1);
        columns->addLayout(column);
    }
    columns->addStretch(1);
}

/// Adds the entries of a menu, and those of the menus in it as if they were its own.
void MenuPage::addEntries(const Menu& menu, const QString& keys, QLayout& column) {
    for (const Menu* const entry : menu.entries()) {
        const QString path = keysTo(*entry, keys);
        if (entry->isEntry())
            addButton(*entry, entry->shortcut().empty() ? path : toQt(entry->shortcut()), column);
        else
            addEntries(*entry, path, column);
    }
}

void MenuPage::addButton(const Menu& entry, const QString& keys, QLayout& column) {
    auto* const button = new RoomyButton(this);
    button->setFocusPolicy(Qt::NoFocus);
    button->setToolTip(keys);
    connect(button, &QPushButton::clicked, menus_.actionOf(entry), &QAction::trigger);
    column.addWidget(button);
    buttons_[&entry] = button;
}

void MenuPage::refresh() {
    for (const auto& [entry, button] : buttons_) {
        button->setText(unmarked(spoken(entry->caption())));
        button->setEnabled(entry->isEnabled());
        button->setVisible(entry->isVisible());
    }
}

}  // namespace tallybrook
