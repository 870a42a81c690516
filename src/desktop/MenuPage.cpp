#include "desktop/MenuPage.h"

#include "controls/Screen.h"
#include "desktop/MenuEntry.h"
#include "desktop/QtText.h"
#include "desktop/Spoken.h"

#include <QAction>
#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>
#include <cstdlib>

namespace tallybrook {

namespace {

constexpr int kBetweenColumns = 36;
constexpr int kBelowTitle = 4;
constexpr int kBetweenEntries = 2;
constexpr int kBesideTitle = 10;  // as beside the texts of the entries

/// The keys that open a menu or run an entry, told behind those of the menu above it.
QString keysTo(const Menu& menu, const QString& above) {
    const std::optional<char> letter = accessLetter(menu);
    if (!letter)
        return above;
    return above.isEmpty() ? QString("Alt+%1").arg(*letter) : above + ", " + QChar(*letter);
}

}  // namespace

MenuPage::MenuPage(const Screen& screen, const MenuBarView& menus) : screen_(screen), menus_(menus) {
    auto* const columns = new QHBoxLayout(this);
    columns->setSpacing(kBetweenColumns);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->addStretch(1);
    for (const Menu* const menu : screen.menuBar()) {
        QBoxLayout* const column = addColumn(*menu);
        addEntries(*menu, keysTo(*menu, {}), *column);
        column->addStretch(1);
        columns->addLayout(column);
        ++columns_;
    }
    columns->addStretch(1);
}

QBoxLayout* MenuPage::addColumn(const Menu& menu) {
    auto* const column = new QVBoxLayout;
    column->setSpacing(kBetweenEntries);
    auto* const title = new QLabel(spoken(menu.caption()), this);  // is read before what stands below it
    QFont font = title->font();
    font.setWeight(QFont::DemiBold);
    title->setFont(font);
    title->setIndent(kBesideTitle);
    column->addWidget(title);
    column->addSpacing(kBelowTitle);
    return column;
}

/// Adds the entries of a menu, and those of the menus in it as if they were its own.
void MenuPage::addEntries(const Menu& menu, const QString& keys, QBoxLayout& column) {
    for (const Menu* const entry : menu.entries()) {
        const QString path = keysTo(*entry, keys);
        if (entry->isEntry())
            addEntry(*entry, entry->shortcut().empty() ? path : toQt(entry->shortcut()), column);
        else
            addEntries(*entry, path, column);
    }
}

void MenuPage::addEntry(const Menu& entry, const QString& keys, QBoxLayout& column) {
    auto* const button = new MenuEntry(this, screen_.primary() == &entry);
    button->setFocusPolicy(Qt::TabFocus);
    button->setToolTip(keys);
    connect(button, &QPushButton::clicked, menus_.actionOf(entry), &QAction::trigger);
    column.addWidget(button);
    entries_.push_back({&entry, button, columns_});
}

void MenuPage::refresh() {
    for (const Shown& shown : entries_) {
        shown.button->setText(unmarked(spoken(shown.entry->caption())));
        tellDescription(*shown.button, shown.button->toolTip());
        shown.button->setEnabled(shown.entry->isEnabled());
        shown.button->setVisible(shown.entry->isVisible());
    }
}

// --- Keys --------------------------------------------------------------------------------------------------

bool MenuPage::press(const QKeyEvent& event) {
    if ((event.modifiers() & (Qt::AltModifier | Qt::ControlModifier)) != 0)
        return false;
    const bool presses =
        event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter || event.key() == Qt::Key_Space;
    MenuEntry* const entry = presses ? focused() : reachedBy(event.key());
    if (entry == nullptr)
        return false;
    if (presses)
        entry->click();
    else
        entry->setFocus(Qt::TabFocusReason);
    return true;
}

MenuEntry* MenuPage::focused() const {
    const auto found =
        std::ranges::find_if(entries_, [](const Shown& one) { return one.button->hasFocus(); });
    return found == entries_.end() ? nullptr : found->button;
}

std::vector<MenuPage::Shown> MenuPage::usable() const {
    std::vector<Shown> found;
    std::ranges::copy_if(entries_, std::back_inserter(found),
                         [](const Shown& one) { return one.button->isEnabled() && one.button->isVisible(); });
    return found;
}

/// The entry that a key leads to: up and down as with Tab, round and round, sideways the one beside.
MenuEntry* MenuPage::reachedBy(int key) const {
    if (key == Qt::Key_Left || key == Qt::Key_Right)
        return besideFocused(key == Qt::Key_Left ? -1 : 1);
    const bool isForwards = key == Qt::Key_Tab || key == Qt::Key_Down;
    const bool isBackwards = key == Qt::Key_Backtab || key == Qt::Key_Up;
    std::vector<Shown> order = usable();
    if ((!isForwards && !isBackwards) || order.empty())
        return nullptr;
    if (isBackwards)
        std::ranges::reverse(order);
    const auto current = std::ranges::find(order, focused(), &Shown::button);
    return current == order.end() || current + 1 == order.end() ? order.front().button
                                                                : (current + 1)->button;
}

/// The entry of the next column, or of the one before, that is nearest in height; the first entry of all
/// where none has the focus.
MenuEntry* MenuPage::besideFocused(int columns) const {
    const std::vector<Shown> all = usable();
    const auto current = std::ranges::find(all, focused(), &Shown::button);
    if (current == all.end())
        return all.empty() ? nullptr : all.front().button;
    MenuEntry* nearest = nullptr;
    const auto distance = [&](const MenuEntry& one) { return std::abs(one.y() - current->button->y()); };
    for (const Shown& one : all) {
        if (one.column == current->column + columns &&
            (nearest == nullptr || distance(*one.button) < distance(*nearest)))
            nearest = one.button;
    }
    return nearest;
}

}  // namespace tallybrook
