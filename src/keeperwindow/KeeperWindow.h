#pragma once

#include "keeper/ArchiveIntake.h"
#include "keeper/BackupList.h"
#include "keeper/Export.h"
#include "keeperwindow/BackupsView.h"
#include "keeperwindow/EventsView.h"
#include "keeperwindow/Work.h"

#include <QLabel>
#include <QMainWindow>
#include <QProgressBar>
#include <QPushButton>
#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

class QMenu;
class QToolBar;

namespace tallybrook::keeper {

/// The window of the keeper: the backups of a logbook with their events, and the ways in and out.
class KeeperWindow : public QMainWindow {
public:
    /// `clock` must outlive the window.
    KeeperWindow(std::filesystem::path dataFolder, const Clock& clock);

    /// Reads the backups anew.
    void refresh();
    [[nodiscard]] bool isBusy() const { return work_.isBusy(); }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    /// A piece of work; what it returns tells a person that it is done.
    using Deed = std::function<QString(Progress& progress)>;
    /// Carries the logbook out to a place.
    using Export = std::function<Exported(const std::filesystem::path& place, Progress& progress)>;

    void addMenu();
    void addAction(QMenu& menu, const QString& caption, const QKeySequence& keys, const QString& tool,
                   std::function<void()> run);
    void addCentre();
    QWidget* backupsSide();
    QWidget* eventsSide();
    QWidget* progressStrip();

    void run(const QString& failed, const Work::Task& task, const std::function<void()>& then);
    void perform(const QString& failed, const Deed& deed);
    void tellDone();
    void showStage(const Stage& stage);
    void showBusy(bool isBusy);
    void showToday(const Today& today);
    void showChosen();
    void showButtons();
    void tellFailure(const QString& failed, const QString& why);

    void restoreChosen();
    void takeTicked();
    void carryOut(const QString& failed, const QString& place, const Export& write);
    void writeArchive();
    void writeWorkbook();
    void writeCsv();
    void readArchive();
    void carryOver();
    void takeIn(const std::filesystem::path& file, const Choices& choices);

    const std::filesystem::path dataFolder_;
    const Clock& clock_;
    QToolBar* tools_;
    QLabel* today_ = new QLabel;
    QLabel* note_ = new QLabel;
    BackupsView* backups_ = new BackupsView;
    QLabel* backup_ = new QLabel;
    EventsView* events_ = new EventsView;
    QPushButton* take_ = new QPushButton;
    QPushButton* restore_ = new QPushButton("&Restore Whole Backup...");
    QWidget* strip_ = nullptr;
    QLabel* stage_ = new QLabel;
    QString done_;  // what was done last
    QProgressBar* bar_ = new QProgressBar;
    QPushButton* cancel_ = new QPushButton("&Cancel");
    std::vector<QAction*> actions_;  // what waits until work is done
    Work work_;                      // the last one: it uses the others
};

}  // namespace tallybrook::keeper
