#include "desktop/DesktopDisplay.h"

#include "desktop/BoxWindow.h"
#include "desktop/Dialogs.h"
#include "desktop/QtText.h"
#include "runtime/EndProgram.h"
#include "style/OutlinedStyle.h"

#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QProcess>
#include <QThread>
#include <algorithm>

static void initResources() {
    Q_INIT_RESOURCE(resources);
}

namespace tallybrook {

DesktopDisplay::DesktopDisplay(const DesktopHabits& habits) : habits_(habits), memory_(habits.settings) {
    initResources();
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setWindowIcon(QIcon(":/pictures/logo.svg"));
    if (dynamic_cast<OutlinedStyle*>(QApplication::style()) == nullptr)
        QApplication::setStyle(new OutlinedStyle);
}

DesktopDisplay::~DesktopDisplay() {
    for (const auto& [screen, window] : windows_)
        letGo(*window);
    deleteGone();
    DesktopDisplay::pointer(Pointer::Default);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void DesktopDisplay::perform(const std::function<void()>& action) {
    if (program_->hasEnded())
        return;
    if (++performing_ == 1)
        working_.start();
    try {
        program_->perform(action);
    } catch (...) {
        failure_ = std::current_exception();
        QCoreApplication::quit();
    }
    if (--performing_ == 0) {
        pointer(Pointer::Default);  // a procedure that was given up may have left it busy
        deleteGone();
        tellSaved();
    }
    notice_.reset();
    refreshAll();
}

/// Whoever has stored something sees when, on the screen that it has led to.
void DesktopDisplay::tellSaved() {
    const Screen* const front = program_->screens.front();
    if (std::exchange(hasSaved_, false) && front != nullptr)
        windowOf(*front)->tellSaved(program_->clock.now());
}

void DesktopDisplay::refreshAll() {
    for (const auto& [screen, window] : windows_) {
        if (window->isVisible())  // any other one is refreshed when it is shown
            window->refresh();
    }
}

// --- Windows -----------------------------------------------------------------------------------------------

ScreenWindow* DesktopDisplay::windowOf(const Screen& screen) const {
    const auto found = windows_.find(&screen);
    return found == windows_.end() ? nullptr : found->second;
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

void DesktopDisplay::loaded(Screen& screen) {
    windows_[&screen] = new ScreenWindow(screen, *this);
}

void DesktopDisplay::shown(Screen& screen) {
    windowOf(screen)->refresh();
    windowOf(screen)->present();
    windowOf(screen)->bringToFront();
}

void DesktopDisplay::raised(Screen& screen) {
    windowOf(screen)->bringToFront();
}

void DesktopDisplay::hidden(Screen& screen) {
    windowOf(screen)->hide();
}

void DesktopDisplay::unloaded(Screen& screen) {
    letGo(*windowOf(screen));
    windows_.erase(&screen);
}

void DesktopDisplay::letGo(ScreenWindow& window) {
    window.letGo();
    gone_.push_back(&window);
}

/// To be called when no action runs any more: a box in it would wait in a loop of events, which deletes too
/// early what the action, and the toolkit around it, go on with.
void DesktopDisplay::deleteGone() {
    for (ScreenWindow* const window : std::exchange(gone_, {}))
        window->deleteLater();
}

void DesktopDisplay::ended() {
    for (const auto& [screen, window] : windows_)
        letGo(*window);
    windows_.clear();
    help_.reset();
    notice_.reset();
    pointer(Pointer::Default);
    QCoreApplication::quit();
}

// --- Boxes and dialogs -------------------------------------------------------------------------------------

QWidget* DesktopDisplay::prepareForBox() {
    notice_.reset();
    endWork();
    refreshAll();
    return frontWindow();
}

Answer DesktopDisplay::messageBox(const MessageBox& box) {
    const Answer answer = BoxWindow(box, prepareForBox()).ask();
    working_.start();
    return answer;
}

std::optional<std::string> DesktopDisplay::inputBox(const InputBox& box) {
    std::optional<std::string> given = askForText(box, prepareForBox());
    working_.start();
    return given;
}

std::optional<std::filesystem::path> DesktopDisplay::fileDialog(const FileDialog& dialog) {
    std::optional<std::filesystem::path> chosen = chooseFile(dialog, prepareForBox());
    working_.start();
    return chosen;
}

void DesktopDisplay::runTimeError(const RunTimeError& failure) {
    messageBox(
        {.text = "Run-time error '" + std::to_string(failure.number()) + "':\r\n\r\n" + failure.description(),
         .icon = Icon::Critical});
}

// --- Waiting for a record ----------------------------------------------------------------------------------

void DesktopDisplay::retrying(std::string_view /*module*/, int tries) {
    constexpr unsigned long kPause = 10;  // milliseconds between tries
    if (tries == 1) {
        notice_.reset();
        waiting_.start();
        refreshAll();
    }
    if (!notice_ && waiting_.hasExpired(habits_.patience.count()))
        notice_ = std::make_unique<RetryNotice>(frontWindow());
    // Until the notice is up nobody may use the windows of a program that is in the middle of something.
    QCoreApplication::processEvents(notice_ ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
    QThread::msleep(kPause);
    if (notice_ && notice_->choice() != RetryNotice::Choice::None)
        giveUpWaiting();
}

/// Does what was chosen on the notice. Where no other screen is left to go back to, the program ends.
void DesktopDisplay::giveUpWaiting() {
    const RetryNotice::Choice choice = notice_->choice();
    notice_.reset();
    if (choice == RetryNotice::Choice::EndProgram || program_->screens.loaded().size() < 2)
        throw EndProgram{};
    program_->screens.goBackFrom(*waitingScreen());
    throw EndHandler{};
}

/// The loaded screen whose procedure is waiting; the last loaded one where nobody has told.
Screen* DesktopDisplay::waitingScreen() const {
    const std::vector<Screen*> loaded = program_->screens.loaded();
    const auto told = std::ranges::find(loaded, program_->waiting);
    return told == loaded.end() ? loaded.back() : *told;
}

// --- Long work ---------------------------------------------------------------------------------------------

/// What takes long shows the busy pointer, be it told or not, and lets the windows draw themselves.
void DesktopDisplay::atWork() {
    constexpr qint64 kLong = 300;     // milliseconds
    constexpr qint64 kBetween = 100;  // from one drawing to the next
    if (performing_ == 0 || isRedrawing_ || !working_.hasExpired(kLong))
        return;
    if (QApplication::overrideCursor() == nullptr) {
        pointer(Pointer::Busy);
        isBusy_ = true;
    }
    if (redrawn_.isValid() && !redrawn_.hasExpired(kBetween))
        return;
    isRedrawing_ = true;
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    isRedrawing_ = false;
    redrawn_.start();
}

/// Somebody is asked something: the pointer is as the screens have told.
void DesktopDisplay::endWork() {
    if (std::exchange(isBusy_, false))
        pointer(Pointer::Default);
}

// --- Pointer, help, viewer ---------------------------------------------------------------------------------

void DesktopDisplay::pointer(Pointer pointer) {
    while (QApplication::overrideCursor() != nullptr)
        QApplication::restoreOverrideCursor();
    isBusy_ = false;
    if (pointer == Pointer::Busy)
        QApplication::setOverrideCursor(Qt::WaitCursor);
}

void DesktopDisplay::help(HelpTopic topic) {
    const std::filesystem::path folder = program_ == nullptr ? "" : program_->dataFolder;
    if (!help_)
        help_ = std::make_unique<HelpWindow>(QString::fromStdU16String(folder.u16string()));
    help_->open(topic == HelpTopic::Contents ? "index" : QString::number(static_cast<int>(topic)));
}

void DesktopDisplay::startViewer(const std::filesystem::path& file) {
    const QString viewer = QDir(QCoreApplication::applicationDirPath()).filePath("tallybrook-viewer");
    // The name goes over as one argument, whatever it holds; no shell sees it.
    if (!QProcess::startDetached(viewer, {QString::fromStdU16String(file.u16string())}))
        throw RunTimeError(error::kFileNotFound);
}

}  // namespace tallybrook
