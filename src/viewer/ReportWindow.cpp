#include "viewer/ReportWindow.h"

#include "viewer/Boxes.h"
#include "viewer/BusyPointer.h"
#include "viewer/FileFailure.h"
#include "viewer/Pictures.h"
#include "viewer/PrintDialogs.h"

#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QSettings>
#include <QShortcut>
#include <QSplitter>
#include <QToolBar>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>
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
      tools_(addToolBar("Tools")) {
    setWindowTitle("Tallybrook Report");
    setAcceptDrops(true);
    tools_->setMovable(false);
    tools_->setContextMenuPolicy(Qt::PreventContextMenu);
    addFileMenu();
    addEditMenu();
    addSpace(*tools_);
    addViewMenu();
    addCentre();
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, [this] { leave(); });
    view_->onZoomed = [this] { showZoom(); };
    pictures_->onZoomWanted = [this](Zoom zoom) { view_->setZoom(zoom); };
    restore();
    view_->setFocus();
}

// --- Menus and tools ---------------------------------------------------------------------------------------

void ReportWindow::addFileMenu() {
    QMenu& menu = *menuBar()->addMenu("&File");
    QAction* const choose = addTo(menu, "&Open...", {Qt::CTRL | Qt::Key_O}, [this] { chooseFile(); });
    addRecentMenu(menu);
    menu.addSeparator();
    QAction* const print = addTo(menu, "&Print...", {Qt::CTRL | Qt::Key_P},
                                 [this] { printReport(report_, printedParts(), *this); });
    addTo(menu, "Print Pre&view", {}, [this] { previewReport(report_, printedParts(), *this); });
    addTo(menu, "&Export as PDF...", {}, [this] { exportReport(report_, printedParts(), *this); });
    menu.addSeparator();
    addTo(menu, "&Close", {Qt::CTRL | Qt::Key_W}, [this] { close(); });
    addTo(*tools_, *choose, "Open");
    addTo(*tools_, *print, "Print");
}

void ReportWindow::addRecentMenu(QMenu& menu) {
    QMenu* const recent = menu.addMenu("Open &Recent");
    connect(recent, &QMenu::aboutToShow, this, [this, recent] { listRecent(*recent); });
    connect(&menu, &QMenu::aboutToShow, this,
            [this, recent] { recent->setEnabled(!recent_.files().isEmpty()); });
}

/// Lists the recent reports anew, those that are gone switched off.
void ReportWindow::listRecent(QMenu& menu) {
    menu.clear();
    int number = 0;
    for (const QString& file : recent_.files()) {
        QAction* const entry = addTo(menu, captionOf(file, ++number), {}, [this, file] { open(file); });
        entry->setEnabled(QFileInfo(file).isFile());
    }
    menu.addSeparator();
    addTo(menu, "&Clear List", {}, [this] { recent_.clear(); });
}

void ReportWindow::addEditMenu() {
    QMenu& menu = *menuBar()->addMenu("&Edit");
    QAction* const copy = addTo(menu, "&Copy", {Qt::CTRL | Qt::Key_C}, [this] { view_->copy(); });
    copy->setEnabled(false);
    connect(view_, &QPlainTextEdit::copyAvailable, copy, &QAction::setEnabled);
    addTo(menu, "Select &All", {Qt::CTRL | Qt::Key_A}, [this] { view_->selectAll(); });
    menu.addSeparator();
    QAction* const find = addTo(menu, "&Find...", {Qt::CTRL | Qt::Key_F}, [this] { finder_.open(); });
    addTo(menu, "Find &Next", {Qt::Key_F3}, [this] { finder_.next(); });
    addTo(menu, "Find &Previous", {Qt::SHIFT | Qt::Key_F3}, [this] { finder_.previous(); });
    addTo(*tools_, *find, "Find");
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
    hasPictures_ = menu.addAction("&Pictures");
    hasPictures_->setShortcut(Qt::Key_F9);
    hasPictures_->setCheckable(true);
    hasPictures_->setChecked(true);
    connect(hasPictures_, &QAction::toggled, this, [this] { showPictures(); });
    addTo(*tools_, *smaller, "\u2212");
    addTo(*tools_, *actualSize_, "100%");
    addTo(*tools_, *larger, "+");
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
    setCentralWidget(centre);
}

/// Escape: out of what was opened last.
void ReportWindow::leave() {
    if (!finder_.close())
        close();
}

void ReportWindow::showZoom() {
    actualSize_->setIconText(QString("%1%").arg(view_->zoom().percent()));
    pictures_->setZoom(view_->zoom());
}

/// A report without figures is shown as text alone.
void ReportWindow::showPictures() {
    hasPictures_->setEnabled(!pictures_->isEmpty());
    pictures_->setVisible(!pictures_->isEmpty() && hasPictures_->isChecked());
}

/// What is shown is what is printed.
Parts ReportWindow::printedParts() const {
    return hasPictures_->isChecked() ? Parts::TextAndPictures : Parts::Text;
}

// --- Reports -----------------------------------------------------------------------------------------------

bool ReportWindow::open(const QString& file) {
    try {
        const BusyPointer busy;
        showReport(readReport(file));
        recent_.add(file);
        return true;
    } catch (const FileFailure& failure) {
        tellFailure(isVisible() ? this : nullptr, "The report cannot be shown:", file, failure.reason());
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

void ReportWindow::showReport(ReportText report) {
    report_ = std::move(report);
    pictures_->setPictures(picturesOf(readFigures(report_.text)));
    showPictures();
    view_->setPlainText(report_.text);
    finder_.setText(report_.text);
    setWindowTitle(unmarked(report_.name()) + " - Tallybrook Report");
}

void ReportWindow::chooseFile() {
    const QString folder = QFileInfo(report_.file).absolutePath();
    const QString file =
        QFileDialog::getOpenFileName(this, "Open Report", folder, "Text Files (*.txt);;All Files (*)");
    if (!file.isEmpty())
        open(file);
}

void ReportWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!localFiles(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

/// The first file is shown here, more of them in windows of their own.
void ReportWindow::dropEvent(QDropEvent* event) {
    QStringList files = localFiles(*event->mimeData());
    event->acceptProposedAction();
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
