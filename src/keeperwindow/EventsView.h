#pragma once

#include "keeper/BackupList.h"

#include <QTreeWidget>
#include <cstdint>
#include <functional>
#include <vector>

namespace tallybrook::keeper {

/// The events of a backup, those first that were deleted since, with a mark to tick on each; below an event
/// stand its games, and below these their frames.
class EventsView : public QTreeWidget {
public:
    EventsView();

    /// Shows the events of a backup, or nothing.
    void show(const BackupEntry* entry);

    /// The keys of the events that are ticked.
    [[nodiscard]] std::vector<std::int64_t> ticked() const;

    std::function<void()> onTicked;
    /// Is called with what is wrong with the backup where its games cannot be read.
    std::function<void(const QString& why)> onTrouble;

private:
    void add(const EventSummary& event, Fate fate);
    void readGames(QTreeWidgetItem& item);
    void tellTicked();

    std::filesystem::path backup_;
};

}  // namespace tallybrook::keeper
