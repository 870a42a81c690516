#pragma once

#include <QHash>
#include <QList>
#include <QPoint>
#include <QSize>
#include <QString>
#include <QVariant>
#include <optional>

class QSettings;

namespace tallybrook {

/// How the user has left the windows: where they stand, which is one place for all, whether they are
/// maximised, the sizes that they were given and the widths of columns.
class WindowMemory {
public:
    /// `settings` is what outlasts the program; nullptr for nothing. What it holds is taken as it is, and
    /// what makes no sense as if it were not there.
    explicit WindowMemory(QSettings* settings = nullptr) : settings_(settings) {}

    /// The upper left corner of the windows; nothing where no window has been moved.
    [[nodiscard]] std::optional<QPoint> place() const;
    void keepPlace(QPoint place);
    [[nodiscard]] bool isMaximised() const;
    void keepMaximised(bool isMaximised);
    /// The size of a window, by the name of its screen; an invalid one where it has not been changed.
    [[nodiscard]] QSize sizeOf(const QString& screen) const;
    void keepSize(const QString& screen, QSize size);
    /// The widths of a grid's columns, by a name of the grid; none where they have not been changed.
    [[nodiscard]] QList<int> columnsOf(const QString& grid) const;
    void keepColumns(const QString& grid, const QList<int>& widths);

private:
    [[nodiscard]] QVariant value(const QString& key) const;
    void keep(const QString& key, const QVariant& value);

    QSettings* settings_;
    QHash<QString, QVariant> kept_;
};

}  // namespace tallybrook
