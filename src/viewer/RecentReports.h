#pragma once

#include <QStringList>

class QSettings;

namespace tallybrook {

/// The reports that were opened last, the newest first; kept in the user's settings, which all windows share.
class RecentReports {
public:
    static constexpr qsizetype kMost = 10;

    /// `settings` must outlive it.
    explicit RecentReports(QSettings& settings) : settings_(settings) {}

    /// Their full paths, also of those that are gone.
    [[nodiscard]] QStringList files() const;
    /// Puts a file in front.
    void add(const QString& file);
    void clear();

private:
    QSettings& settings_;
};

}  // namespace tallybrook
