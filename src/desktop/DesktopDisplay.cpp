#include "desktop/DesktopDisplay.h"

#include "desktop/BoxWindow.h"
#include "runtime/EndProgram.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QProcess>
#include <QThread>

static void initResources() {
    Q_INIT_RESOURCE(resources);
}

namespace tallybrook {

DesktopDisplay::DesktopDisplay() {
    initResources();
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setWindowIcon(QIcon(":/pictures/logo.svg"));
}

DesktopDisplay::~DesktopDisplay() {
    for (const auto& [screen, window] : windows_)
        delete window.data();
}

void DesktopDisplay::perform(const std::function<void()>& action, Refresh refresh, const bool* used) {
    if (program_->hasEnded())
        return;
    try {
        program_->perform(action);
    } catch (...) {
        failure_ = std::current_exception();
    }
    notice_.reset();
    if (refresh == Refresh::Always || *used)
        refreshAll();
}

void DesktopDisplay::refreshAll() {
    for (const auto& [screen, window] : windows_)
        window->refresh();
}

ScreenWindow* DesktopDisplay::windowOf(const Screen& screen) const {
    const auto found = windows_.find(&screen);
    return found == windows_.end() ? nullptr : found->second.data();
}

QWidget* DesktopDisplay::widgetOf(const Control& control) const {
    const ScreenWindow* const window = windowOf(control.screen());
    return window == nullptr ? nullptr : window->widgetOf(control);
}

QAction* DesktopDisplay::actionOf(const Control& control) const {
    const ScreenWindow* const window = windowOf(control.screen());
    return window == nullptr ? nullptr : window->actionOf(control);
}

QWidget* DesktopDisplay::frontWindow() const {
    const Screen* const front = program_->screens.front();
    return front == nullptr ? nullptr : windowOf(*front);
}

Answer DesktopDisplay::messageBox(const MessageBox& box) {
    refreshAll();
    BoxWindow window(box, frontWindow());
    return window.ask();
}

std::optional<std::string> DesktopDisplay::inputBox(const InputBox& box) {
    refreshAll();
    bool given = false;
    const QString text =
        QInputDialog::getText(frontWindow(), toQt(box.title), toQt(box.text), QLineEdit::Normal, {}, &given);
    return given ? std::optional(text.toStdString()) : std::nullopt;
}

std::optional<std::filesystem::path> DesktopDisplay::fileDialog(const FileDialog& dialog) {
    refreshAll();
    QFileDialog window(frontWindow(), toQt(dialog.title), toQt(dialog.folder));
    const bool saves = dialog.purpose == FileDialog::Purpose::Save;
    window.setAcceptMode(saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    window.setFileMode(saves ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    const QStringList parts = toQt(dialog.filter).split('|');  // a name and its pattern by turns
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
        filters << parts[i];
    window.setNameFilters(filters);
    if (!dialog.name.empty())
        window.selectFile(toQt(dialog.name));
    if (window.exec() != QDialog::Accepted)
        return std::nullopt;
    const QString file = window.selectedFiles().value(0);
    QDir::setCurrent(QFileInfo(file).absolutePath());
    return std::filesystem::path(file.toStdString());
}

void DesktopDisplay::loaded(Screen& screen) {
    windows_[&screen] = new ScreenWindow(screen, *this);
}

void DesktopDisplay::shown(Screen& screen) {
    windowOf(screen)->refresh();
    windowOf(screen)->show();
    bringToFront(screen);
}

void DesktopDisplay::raised(Screen& screen) {
    bringToFront(screen);
}

void DesktopDisplay::bringToFront(Screen& screen) {
    windowOf(screen)->raise();
    windowOf(screen)->activateWindow();
}

void DesktopDisplay::hidden(Screen& screen) {
    windowOf(screen)->hide();
}

void DesktopDisplay::unloaded(Screen& screen) {
    if (ScreenWindow* const window = windowOf(screen); window != nullptr)
        window->letGo();
    windows_.erase(&screen);
}

void DesktopDisplay::pointer(Pointer pointer) {
    if (pointer == Pointer::Busy)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

void DesktopDisplay::help(HelpTopic topic) {
    if (!help_)
        help_ = std::make_unique<HelpWindow>();
    help_->open(topic);
}

void DesktopDisplay::startViewer(const std::filesystem::path& file) {
    const QString viewer = QDir(QCoreApplication::applicationDirPath()).filePath("tallybrook-viewer");
    if (!QProcess::startDetached(viewer, {toQt(file.string())}))
        throw RunTimeError(error::kFileNotFound);
}

void DesktopDisplay::retrying(std::string_view /*module*/, int tries) {
    constexpr qint64 kPatience = 5000;  // milliseconds until the notice
    constexpr unsigned long kPause = 10;
    if (tries == 1)
        waiting_.start();
    if (!notice_ && waiting_.elapsed() >= kPatience)
        notice_ = std::make_unique<RetryNotice>(frontWindow());
    // Until the notice is up nobody may use the windows of a program that is in the middle of something.
    QCoreApplication::processEvents(notice_ ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
    QThread::msleep(kPause);
    switch (notice_ ? notice_->choice() : RetryNotice::Choice::None) {
        case RetryNotice::Choice::CloseScreen:
            program_->screens.goBackFrom(*program_->waiting);
            throw EndHandler{};
        case RetryNotice::Choice::EndProgram:
            throw EndProgram{};
        case RetryNotice::Choice::None:
            break;
    }
}

void DesktopDisplay::runTimeError(const RunTimeError& failure) {
    messageBox(
        {.text = "Run-time error '" + std::to_string(failure.number()) + "':\r\n\r\n" + failure.description(),
         .icon = Icon::Critical});
}

void DesktopDisplay::ended() {
    for (const auto& [screen, window] : windows_)
        window->letGo();
    windows_.clear();
    help_.reset();
    notice_.reset();
    QCoreApplication::quit();
}

}  // namespace tallybrook
