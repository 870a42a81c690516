#include "viewer/ReportWindow.h"

#include "pictures/Pictures.h"
#include "pictures/SeasonsSideBySide.h"
#include "readers/FileFailure.h"
#include "runtime/DataHome.h"
#include "viewer/Boxes.h"
#include "viewer/BusyPointer.h"
#include "viewer/PictureFiles.h"
#include "viewer/PictureWidget.h"
#include "viewer/PrintDialogs.h"

#include <QDesktopServices>
#include <QDir>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QSettings>
#include <QShortcut>
#include <QSplitter>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>
#include <memory>
#include <utility>

namespace tallybrook {

namespace {

constexpr const char* kSize = "window/size";
constexpr const char* kIsMaximised = "window/maximised";
constexpr const char* kZoom = "view/zoom";
constexpr const char* kHasPictures = "view/pictures";
constexpr const char* kSplit = "view/split";

template <typename Run>
QAction* addTo(QMenu& menu, const QString& caption, const QList<QKeySequence>& keys, Run run) {
    QAction* const action = menu.addAction(caption, &menu, std::move(run));
    action->setShortcuts(keys);
    return action;
}

/// Puts an action into the tool bar, where its button bears `caption`.
void addTo(QToolBar& tools, QAction& action, const QString& caption) {
    const QString name = action.text().remove('&').remove("...");
    action.setIconText(caption);
    action.setToolTip(name + " (" + action.shortcut().toString(QKeySequence::NativeText) + ")");
    tools.addAction(&action);
    tools.widgetForAction(&action)->setAccessibleName(name);
    tools.widgetForAction(&action)->setFocusPolicy(Qt::TabFocus);
}

void addSpace(QToolBar& tools) {
    auto* const space = new QWidget;
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    tools.addWidget(space);
}

/// A text for a menu, which would take "&" for the mark of a letter.
QString withoutLetter(QString text) {
    return text.replace('&', "&&");
}

/// A recent report in a menu: its number for the keyboard, its name and its folder.
QString captionOf(const QString& file, int number) {
    const QFileInfo info(file);
    const QString digit = number < 10 ? QString("&%1").arg(number) : QString("1&0");
    return digit + " " + withoutLetter(info.fileName()) + "  (" +
           withoutLetter(QDir::toNativeSeparators(info.absolutePath())) + ")";
}

QStringList localFiles(const QMimeData& dropped) {
    QStringList files;
    for (const QUrl& url : dropped.urls()) {
        if (url.isLocalFile())
            files += url.toLocalFile();
    }
    return files;
}

/// A text for a window's title, which would take "[*]" for a mark of changes.
QString unmarked(QString text) {
    return text.replace("[*]", "[*][*]");
}

}  // namespace

ReportWindow::ReportWindow(QSettings& settings)
    : settings_(settings),
      recent_(settings),
      view_(new ReportView),
      pictures_(new PicturesView),
      splitter_(new QSplitter),
      findBar_(new FindBar),
      finder_(*view_, *findBar_),
      notice_(new NoticeBar),
      tools_(addToolBar("Tools")) {
    setWindowTitle("Tallybrook Report");
    setAcceptDrops(true);
    tools_->setMovable(false);
    tools_->setContextMenuPolicy(Qt::PreventContextMenu);
    addFileMenu();
    addEditMenu();
    addSpace(*tools_);
    addViewMenu();
    addHelpMenu();
    addCentre();
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, [this] { leave(); });
    figures_.onRead = [this](ReportFigures figures) { showPictures(picturesOf(std::move(figures))); };
    view_->onZoomed = [this] { showZoom(); };
    pictures_->onZoomWanted = [this](Zoom zoom) { view_->setZoom(zoom); };
    restore();
    view_->setFocus();
}

// --- Menus and tools ---------------------------------------------------------------------------------------

void ReportWindow::addFileMenu() {
    menuBar()->setAccessibleName("Menu");
    QMenu& menu = *menuBar()->addMenu("&File");
    QAction* const choose = addTo(menu, "&Open...", {Qt::CTRL | Qt::Key_O}, [this] { chooseFile(); });
    addRecentMenu(menu, "Open &Recent", &ReportWindow::openRecent);
    menu.addSeparator();
    addTo(menu, "Co&mpare With...", {Qt::CTRL | Qt::SHIFT | Qt::Key_O}, [this] { chooseOthers(); });
    addRecentMenu(menu, "Compare &With Recent", &ReportWindow::compareRecent);
    menu.addSeparator();
    QAction* const print = addTo(menu, "&Print...", {Qt::CTRL | Qt::Key_P},
                                 [this] { printReport(report_, printedPictures(), *this); });
    addTo(menu, "Print Pre&view", {}, [this] { previewReport(report_, printedPictures(), *this); });
    addTo(menu, "&Export as PDF...", {}, [this] { exportPdf(); });
    menu.addSeparator();
    addTo(menu, "&Close", {Qt::CTRL | Qt::Key_W}, [this] { close(); });
    addTo(*tools_, *choose, "Open");
    addTo(*tools_, *print, "Print");
}

void ReportWindow::addRecentMenu(QMenu& menu, const QString& caption, UseOfFile use) {
    QMenu* const recent = menu.addMenu(caption);
    connect(recent, &QMenu::aboutToShow, this, [this, recent, use] { listRecent(*recent, use); });
    connect(&menu, &QMenu::aboutToShow, this,
            [this, recent] { recent->setEnabled(!recent_.files().isEmpty()); });
}

/// Lists the recent reports anew, those that are gone switched off.
void ReportWindow::listRecent(QMenu& menu, UseOfFile use) {
    menu.clear();
    int number = 0;
    for (const QString& file : recent_.files()) {
        QAction* const entry =
            addTo(menu, captionOf(file, ++number), {}, [this, use, file] { (this->*use)(file); });
        entry->setEnabled(QFileInfo(file).isFile());
    }
    menu.addSeparator();
    addTo(menu, "&Clear List", {}, [this] { recent_.clear(); });
}

void ReportWindow::addEditMenu() {
    QMenu& menu = *menuBar()->addMenu("&Edit");
    QAction* const copy = addTo(menu, "&Copy", {Qt::CTRL | Qt::Key_C}, [this] { view_->copy(); });
    copy->setEnabled(false);
    view_->onSelected = [this, copy] { copy->setEnabled(!view_->selected().isEmpty()); };
    QAction* const all = addTo(menu, "Select &All", {Qt::CTRL | Qt::Key_A}, [this] { view_->selectAll(); });
    view_->addActions({copy, all});
    view_->setContextMenuPolicy(Qt::ActionsContextMenu);
    addPictureEntries(menu);
    menu.addSeparator();
    QAction* const find = addTo(menu, "&Find...", {Qt::CTRL | Qt::Key_F}, [this] { finder_.open(); });
    addTo(menu, "Find &Next", {Qt::Key_F3}, [this] { finder_.next(); });
    addTo(menu, "Find &Previous", {Qt::SHIFT | Qt::Key_F3}, [this] { finder_.previous(); });
    addTo(*tools_, *find, "Find");
}

/// What is done to the picture that was touched last.
void ReportWindow::addPictureEntries(QMenu& menu) {
    menu.addSeparator();
    const auto add = [&](const QString& caption, const QKeySequence& key,
                         void (*run)(PictureWidget & picture)) {
        const QList<QKeySequence> keys = key.isEmpty() ? QList<QKeySequence>() : QList<QKeySequence>{key};
        QAction* const entry = addTo(menu, caption, keys, [this, run] {
            if (PictureWidget* const picture = pictures_->current(); picture != nullptr)
                run(*picture);
        });
        entry->setEnabled(false);  // until there are pictures
        ofPictures_.push_back(entry);
    };
    add("Copy P&icture", {}, copyPicture);
    add("Copy as &Table", Qt::CTRL | Qt::SHIFT | Qt::Key_C, copyTable);
    add("Sa&ve Picture...", {}, savePicture);
}

void ReportWindow::addViewMenu() {
    QMenu& menu = *menuBar()->addMenu("&View");
    const auto zoomBy = [this](int steps) { view_->setZoom(view_->zoom().stepped(steps)); };
    // The "+" of many keyboards needs Shift; the key alone, "=", will do.
    QAction* const larger =
        addTo(menu, "Zoom &In", {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal}, [zoomBy] { zoomBy(1); });
    QAction* const smaller = addTo(menu, "Zoom &Out", {Qt::CTRL | Qt::Key_Minus}, [zoomBy] { zoomBy(-1); });
    actualSize_ = addTo(menu, "&Actual Size", {Qt::CTRL | Qt::Key_0}, [this] { view_->setZoom(Zoom()); });
    menu.addSeparator();
    addTo(menu, "&Reload", {Qt::Key_F5}, [this] { reload(); });
    hasPictures_ = menu.addAction("&Pictures");
    hasPictures_->setShortcut(Qt::Key_F9);
    hasPictures_->setCheckable(true);
    hasPictures_->setChecked(true);
    connect(hasPictures_, &QAction::toggled, this, [this] { showPane(); });
    addTo(*tools_, *smaller, "\u2212");
    addTo(*tools_, *actualSize_, "100%");
    addTo(*tools_, *larger, "+");
}

void ReportWindow::addHelpMenu() {
    QMenu& menu = *menuBar()->addMenu("&Help");
    addTo(menu, "Reading a &Report", {Qt::Key_F1}, [this] { showHelp("viewer"); });
    addTo(menu, "&Contents", {}, [this] { showHelp("index"); });
}

void ReportWindow::showHelp(const QString& page) {
    if (!help_)
        help_ = std::make_unique<HelpWindow>(QString::fromStdU16String(defaultDataFolder().u16string()));
    help_->open(page);
}

void ReportWindow::addCentre() {
    auto* const centre = new QWidget;
    auto* const column = new QVBoxLayout(centre);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    splitter_->addWidget(view_);
    splitter_->addWidget(pictures_);
    splitter_->setChildrenCollapsible(false);
    splitter_->setStretchFactor(0, 3);
    splitter_->setStretchFactor(1, 2);
    column->addWidget(splitter_, 1);
    column->addWidget(findBar_);
    column->addWidget(notice_);
    setCentralWidget(centre);
}

/// Escape: out of what was opened last.
void ReportWindow::leave() {
    if (!finder_.close() && !notice_->close())
        close();
}

void ReportWindow::showZoom() {
    actualSize_->setIconText(QString("%1%").arg(view_->zoom().percent()));
    pictures_->setZoom(view_->zoom());
}

/// A report without figures is shown as text alone. The window is never narrower than its parts.
void ReportWindow::showPane() {
    const bool areShown = !pictures_->isEmpty() && hasPictures_->isChecked();
    hasPictures_->setEnabled(!pictures_->isEmpty());
    pictures_->setVisible(areShown);
    for (QAction* const entry : ofPictures_)
        entry->setEnabled(areShown);
    const int parts = splitter_->minimumSizeHint().width() + splitter_->handleWidth();
    setMinimumWidth(std::max(leastWidth_, parts));
}

/// Writes a PDF, and tells where it is.
void ReportWindow::exportPdf() {
    const std::optional<QString> written = exportReport(report_, printedPictures(), *this);
    if (!written)
        return;
    const QUrl folder = QUrl::fromLocalFile(QFileInfo(*written).absolutePath());
    notice_->offer("The PDF is written: " + QDir::toNativeSeparators(*written), "Open Folder",
                   [folder] { QDesktopServices::openUrl(folder); });
}

/// What is shown is what is printed.
std::vector<ReportPicture> ReportWindow::printedPictures() const {
    return hasPictures_->isChecked() ? pictures_->shown() : std::vector<ReportPicture>();
}

// --- Reports -----------------------------------------------------------------------------------------------

bool ReportWindow::open(const QString& file) {
    return openFiles({file});
}

bool ReportWindow::compare(const QStringList& files) {
    return files.size() > 1 && openFiles(files);
}

bool ReportWindow::openFiles(const QStringList& files) {
    try {
        load(files);
        notice_->close();
        for (const QString& file : files)
            recent_.add(file);
        return true;
    } catch (const FileFailure& failure) {
        const QString what =
            files.size() > 1 ? "The reports cannot be compared:" : "The report cannot be shown:";
        tellFailure(isVisible() ? this : nullptr, what, files.join('\n'), failure.reason());
        return false;
    }
}

bool ReportWindow::openAll(const QStringList& files, QSettings& settings) {
    bool areShown = true;
    for (const QString& file : files) {
        auto window = std::make_unique<ReportWindow>(settings);
        if (!window->open(file)) {
            areShown = false;
            continue;
        }
        window->setAttribute(Qt::WA_DeleteOnClose);
        window.release()->show();
    }
    return areShown;
}

/// Reads a file and shows it, or more of them side by side. FileFailure, and all stays as it is, where one
/// cannot be read.
void ReportWindow::load(const QStringList& files) {
    const BusyPointer busy;
    std::vector<FileStamp> stamps;
    std::ranges::transform(files, std::back_inserter(stamps), stampOf);
    if (files.size() > 1)
        loadSideBySide(files);
    else
        showReport(readReport(files.first()));
    files_ = files;
    watch(stamps);
}

void ReportWindow::loadSideBySide(const QStringList& files) {
    const SeasonsSideBySide seasons = readSeasons(files);
    const QString folder = QFileInfo(files.first()).absolutePath();
    showText({folder + "/Seasons Side by Side", seasons.text()});
    showPictures(seasons.pictures());
}

/// Follows the files that are shown; `stamps` are how they were when they were read.
void ReportWindow::watch(const std::vector<FileStamp>& stamps) {
    watches_.resize(stamps.size());
    for (std::size_t index = 0; index < stamps.size(); ++index) {
        watches_[index] = std::make_unique<FileWatch>();
        watches_[index]->onWritten = [this] { QTimer::singleShot(0, this, [this] { reloadQuietly(); }); };
        watches_[index]->watch(files_[static_cast<qsizetype>(index)], stamps[index]);
    }
}

/// The same file as it is now, where the reader is.
void ReportWindow::reload() {
    try {
        load(files_);
        notice_->tell("The report is shown as it is now.");
    } catch (const FileFailure& failure) {
        tellFailure(this, "The report cannot be shown:", report_.file, failure.reason());
    }
}

/// The file was written anew while it was shown: nobody is interrupted over it.
void ReportWindow::reloadQuietly() {
    try {
        load(files_);
        notice_->tell("The report was written anew, and is shown as it is now.");
    } catch (const FileFailure& failure) {
        notice_->tell("The report was written anew, but cannot be shown. " + failure.reason() +
                      " What it was before is still here.");
    }
}

/// The text comes first. Its pictures follow, at once where that takes no time.
void ReportWindow::showReport(ReportText report) {
    const bool isAnother = report.file != report_.file;
    showText(std::move(report));
    if (isAnother)
        showPictures({});
    figures_.read(report_.text);
}

void ReportWindow::showText(ReportText report) {
    const bool isSame = report.file == report_.file;
    report_ = std::move(report);
    view_->showText(report_.text, isSame ? ReportView::Place::Same : ReportView::Place::Beginning);
    finder_.renew();
    setWindowTitle(unmarked(report_.name()) + " - Tallybrook Report");
}

void ReportWindow::showPictures(std::vector<ReportPicture> pictures) {
    pictures_->setPictures(std::move(pictures));
    showPane();
}

void ReportWindow::chooseFile() {
    const QString folder = QFileInfo(report_.file).absolutePath();
    const QString file =
        QFileDialog::getOpenFileName(this, "Open Report", folder, "Text Files (*.txt);;All Files (*)");
    if (!file.isEmpty())
        open(file);
}

/// The files that are shown, and others.
QStringList ReportWindow::withShown(const QStringList& files) const {
    QStringList all = files_ + files;
    all.removeDuplicates();
    return all;
}

/// Several files are compared with one another, a single one with what is shown.
void ReportWindow::chooseOthers() {
    const QStringList files = QFileDialog::getOpenFileNames(
        this, "Compare With", QFileInfo(report_.file).absolutePath(), "Text Files (*.txt);;All Files (*)");
    if (!files.isEmpty())
        compare(files.size() > 1 ? files : withShown(files));
}

void ReportWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!localFiles(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

/// Statistical reports are compared. Of others the first is shown here, more of them in windows of their own.
void ReportWindow::dropEvent(QDropEvent* event) {
    QStringList files = localFiles(*event->mimeData());
    event->acceptProposedAction();
    if (files.size() > 1 && areStatistical(files)) {
        compare(files);
        return;
    }
    open(files.takeFirst());
    openAll(files, settings_);
}

// --- From one time to the next -----------------------------------------------------------------------------

void ReportWindow::restore() {
    const QFontMetrics metrics(view_->font());
    constexpr int kTextColumns = 92;  // the longest lines of the reports, with some room around them
    constexpr int kPictureColumns = 62;
    const int column = metrics.horizontalAdvance('x');
    const QSize usual(column * (kTextColumns + kPictureColumns), metrics.lineSpacing() * 40);
    const QSize kept = settings_.value(kSize).toSize();
    leastWidth_ = usual.width() / 4;
    setMinimumSize(usual / 4);
    resize((kept.isValid() ? kept : usual).boundedTo(screen()->availableSize()));
    splitter_->setSizes({column * kTextColumns, column * kPictureColumns});
    splitter_->restoreState(settings_.value(kSplit).toByteArray());
    hasPictures_->setChecked(settings_.value(kHasPictures, true).toBool());
    if (settings_.value(kIsMaximised).toBool())
        setWindowState(Qt::WindowMaximized);
    view_->setZoom(Zoom(settings_.value(kZoom, Zoom().percent()).toInt()));
}

void ReportWindow::closeEvent(QCloseEvent* event) {
    settings_.setValue(kSize, isMaximized() ? normalGeometry().size() : size());
    settings_.setValue(kIsMaximised, isMaximized());
    settings_.setValue(kZoom, view_->zoom().percent());
    settings_.setValue(kSplit, splitter_->saveState());
    settings_.setValue(kHasPictures, hasPictures_->isChecked());
    QMainWindow::closeEvent(event);
}

}  // namespace tallybrook
