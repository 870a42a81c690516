#include "keeperwindow/EventsView.h"

#include "keeper/EventGames.h"
#include "keeper/Outcome.h"
#include "keeperwindow/Columns.h"
#include "keeperwindow/WindowTexts.h"

#include <QAccessible>
#include <QHeaderView>
#include <QSignalBlocker>
#include <algorithm>

namespace tallybrook::keeper {

namespace {

enum Column { kEvent, kDate, kCenter, kGames, kSince };

constexpr int kKey = Qt::UserRole;

QString inWordsOf(Fate fate) {
    return fate == Fate::Same ? "" : shown(inWords(fate));
}

/// The places of the events: deleted ones first, then changed ones, the newest of each first.
std::vector<std::size_t> orderOf(const Summary& summary, const std::vector<Fate>& fates) {
    std::vector<std::size_t> places(summary.events.size());
    for (std::size_t place = 0; place < places.size(); ++place)
        places[place] = places.size() - 1 - place;
    std::ranges::stable_sort(places, std::ranges::greater{}, [&](std::size_t place) { return fates[place]; });
    return places;
}

void addGame(QTreeWidgetItem& event, const GameLook& look) {
    auto* const game = new QTreeWidgetItem(&event);
    game->setText(kEvent, "Game " + shown(look.number));
    game->setText(kCenter, look.lanes.empty() ? "" : "lanes " + shown(look.lanes));
    game->setText(kGames, shown(look.score));
    for (const std::string& frame : look.frames)
        (new QTreeWidgetItem(game))->setText(kEvent, "Frame " + inRow(frame));
}

}  // namespace

EventsView::EventsView() {
    setHeaderLabels({"Event", "Date", "Center", "Games", "Since the backup"});
    setAccessibleName("Events of the backup");
    setAllColumnsShowFocus(true);
    setUniformRowHeights(true);
    header()->setStretchLastSection(true);
    connect(this, &QTreeWidget::itemChanged, this, [this] {
        tellTicked();
        if (onTicked)
            onTicked();
    });
    connect(this, &QTreeWidget::itemExpanded, this, [this](QTreeWidgetItem* item) { readGames(*item); });
}

void EventsView::show(const BackupEntry* entry) {
    {
        const QSignalBlocker quiet(this);
        clear();
        if (entry != nullptr && entry->summary) {
            backup_ = entry->file;
            const std::vector<Fate> fates =
                entry->difference ? entry->difference->fates
                                  : std::vector<Fate>(entry->summary->events.size(), Fate::Same);
            for (const std::size_t place : orderOf(*entry->summary, fates))
                add(entry->summary->events[place], fates[place]);
        }
    }
    for (int column = kEvent; column < kSince; ++column)
        fitColumn(*this, column);
    if (onTicked)
        onTicked();
}

void EventsView::add(const EventSummary& event, Fate fate) {
    auto* const item = new QTreeWidgetItem(this);
    item->setText(kEvent, inRow(event.name));
    item->setText(kDate, inRow(event.date));
    item->setText(kCenter, inRow(event.center));
    item->setText(kGames, QString::number(event.counts.games));
    item->setText(kSince, inWordsOf(fate));
    item->setData(kEvent, kKey, QVariant::fromValue<qlonglong>(event.key));
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setCheckState(kEvent, Qt::Unchecked);
    if (event.counts.games > 0)
        item->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
    if (fate != Fate::Same) {
        QFont bold = font();
        bold.setBold(true);
        item->setFont(kSince, bold);
    }
}

/// Has it read aloud that the current event was ticked or not, which the toolkit leaves out.
void EventsView::tellTicked() {
    QAccessibleInterface* const told = QAccessible::queryAccessibleInterface(this);
    QAccessibleInterface* const event = told == nullptr ? nullptr : told->focusChild();
    if (event == nullptr)
        return;
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent heard(event, changed);
    QAccessible::updateAccessibility(&heard);
}

/// Games are read when they are looked at.
void EventsView::readGames(QTreeWidgetItem& item) {
    if (item.parent() != nullptr || item.childCount() > 0)
        return;
    const Outcome outcome = outcomeOf([&] {
        const auto games = gamesOf(openCopy(backup_), item.data(kEvent, kKey).toLongLong());
        if (!games)
            return;
        const QSignalBlocker quiet(this);
        for (const GameLook& game : *games)
            addGame(item, game);
    });
    if (outcome.status != ExitStatus::Done && onTrouble)
        onTrouble(shown(outcome.why));
}

std::vector<std::int64_t> EventsView::ticked() const {
    std::vector<std::int64_t> keys;
    for (int place = 0; place < topLevelItemCount(); ++place) {
        const QTreeWidgetItem& item = *topLevelItem(place);
        if (item.checkState(kEvent) == Qt::Checked)
            keys.push_back(item.data(kEvent, kKey).toLongLong());
    }
    std::ranges::sort(keys);
    return keys;
}

}  // namespace tallybrook::keeper
