#pragma once

#include "manual/HelpWindow.h"
#include "paper/ReportPrinter.h"
#include "readers/ReportText.h"
#include "viewer/FiguresReader.h"
#include "viewer/FileWatch.h"
#include "viewer/Finder.h"
#include "viewer/NoticeBar.h"
#include "viewer/PicturesView.h"
#include "viewer/RecentReports.h"

#include <QKeySequence>
#include <QMainWindow>
#include <memory>
#include <vector>

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

    /// Shows two statistical reports or more side by side. Where one of them cannot be read or is none a box
    /// tells why, what was shown stays, and the function returns false.
    bool compare(const QStringList& files);

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
    void addHelpMenu();
    void addCentre();
    using UseOfFile = void (ReportWindow::*)(const QString& file);
    void addRecentMenu(QMenu& menu, const QString& caption, UseOfFile use);
    void listRecent(QMenu& menu, UseOfFile use);
    void openRecent(const QString& file) { open(file); }
    void compareRecent(const QString& file) { compare(withShown({file})); }
    void addPictureEntries(QMenu& menu);
    void restore();

    void chooseFile();
    bool openFiles(const QStringList& files);
    void load(const QStringList& files);
    void loadSideBySide(const QStringList& files);
    void watch(const std::vector<FileStamp>& stamps);
    void chooseOthers();
    [[nodiscard]] QStringList withShown(const QStringList& files) const;
    void reload();
    void reloadQuietly();
    void showReport(ReportText report);
    void showText(ReportText report);
    void showPictures(std::vector<ReportPicture> pictures);
    void leave();
    void exportPdf();
    void showHelp(const QString& page);
    void showZoom();
    void showPane();
    [[nodiscard]] std::vector<ReportPicture> printedPictures() const;

    QSettings& settings_;
    RecentReports recent_;
    QStringList files_;  // that are shown
    ReportText report_;
    ReportView* view_;
    PicturesView* pictures_;
    QSplitter* splitter_;
    FindBar* findBar_;
    Finder finder_;
    NoticeBar* notice_;
    QToolBar* tools_;
    FiguresReader figures_;
    std::vector<std::unique_ptr<FileWatch>> watches_;  // one for each file
    std::unique_ptr<HelpWindow> help_;                 // from the first time that it is asked for
    int leastWidth_ = 0;                               // whatever is shown
    QAction* actualSize_ = nullptr;
    QAction* hasPictures_ = nullptr;
    std::vector<QAction*> ofPictures_;  // what is done to a picture that is shown
};

}  // namespace tallybrook
