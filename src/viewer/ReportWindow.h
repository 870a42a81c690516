#pragma once

#include "viewer/Finder.h"
#include "viewer/ReportText.h"

#include <QKeySequence>
#include <QMainWindow>

class QMenu;
class QSettings;
class QToolBar;

namespace tallybrook {

/// The window that shows one report.
class ReportWindow : public QMainWindow {
public:
    /// `settings` keeps the window's size and zoom from one time to the next; it must outlive the window.
    explicit ReportWindow(QSettings& settings);

    /// Shows the report in a file. Where it cannot be read a box tells why, what was shown stays, and the
    /// function returns false.
    bool open(const QString& file);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void addFileMenu();
    void addEditMenu();
    void addViewMenu();
    void addCentre();
    void restore();

    void chooseFile();
    void showReport(ReportText report);
    void leave();
    void showZoom();

    QSettings& settings_;
    ReportText report_;
    ReportView* view_;
    FindBar* findBar_;
    Finder finder_;
    QToolBar* tools_;
    QAction* actualSize_ = nullptr;
};

}  // namespace tallybrook
