#pragma once

#include "keeper/BackupList.h"

#include <QListWidget>
#include <functional>
#include <vector>

namespace tallybrook::keeper {

/// The list of backups, the newest first: when each was made, what it holds, and how it differs from today's
/// logbook.
class BackupsView : public QListWidget {
public:
    BackupsView();

    /// Shows these backups, of which no more is known yet than when they were made.
    void show(const std::vector<BackupEntry>& entries);
    /// More has become known of a backup.
    void update(std::size_t place, const BackupEntry& entry);

    /// The backup that is chosen; nullptr if there is none.
    [[nodiscard]] const BackupEntry* chosen() const;

    std::function<void()> onChosen;

protected:
    [[nodiscard]] QSize viewportSizeHint() const override;

private:
    std::vector<BackupEntry> entries_;
};

}  // namespace tallybrook::keeper
