#pragma once

#include "keeper/ArchiveIntake.h"

#include <QDialog>

class QTreeWidget;

namespace tallybrook::keeper {

/// Asks what is to be done with the events of an archive that are in the logbook already.
class ArchiveDialog : public QDialog {
public:
    ArchiveDialog(const ArchiveContents& contents, QWidget* parent);

    [[nodiscard]] const Choices& choices() const { return choices_; }

private:
    void choose(Same choice);
    [[nodiscard]] QSize usualSize() const;

    QTreeWidget* events_;
    Choices choices_;
};

}  // namespace tallybrook::keeper
