#pragma once

#include "viewer/Finder.h"
#include "viewer/PicturesView.h"
#include "viewer/RecentReports.h"
#include "viewer/ReportPrinter.h"
#include "viewer/ReportText.h"

#include <QKeySequence>
#include <QMainWindow>

class QMenu;
class QSettings;
class QSplitter;
class QToolBar;

namespace tallybrook {

/// The window that shows one report, with the pictures of its figures beside its text.
class ReportWindow : public QMainWindow {
public:
    /// `settings` keeps the window's looks and the recent reports from one time to the next; it must outlive
    /// the window.
    explicit ReportWindow(QSettings& settings);

    /// Shows the report in a file. Where it cannot be read a box tells why, what was shown stays, and the
    /// function returns false.
    bool open(const QString& file);

    /// Shows each of the files in a window of its own, which is destroyed when it is closed. Returns false
    /// where one of them could not be shown.
    static bool openAll(const QStringList& files, QSettings& settings);

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void addFileMenu();
    void addEditMenu();
    void addViewMenu();
    void addCentre();
    void addRecentMenu(QMenu& menu);
    void listRecent(QMenu& menu);
    void restore();

    void chooseFile();
    void showReport(ReportText report);
    void leave();
    void showZoom();
    void showPictures();
    [[nodiscard]] Parts printedParts() const;

    QSettings& settings_;
    RecentReports recent_;
    ReportText report_;
    ReportView* view_;
    PicturesView* pictures_;
    QSplitter* splitter_;
    FindBar* findBar_;
    Finder finder_;
    QToolBar* tools_;
    QAction* actualSize_ = nullptr;
    QAction* hasPictures_ = nullptr;
};

}  // namespace tallybrook
