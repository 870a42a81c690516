#include "BenchDisplay.h"
#include "Processes.h"
#include "Runs.h"
#include "Session.h"
#include "Stopwatch.h"
#include "app/Application.h"
#include "controls/Person.h"
#include "controls/Screen.h"
#include "desktop/DesktopDisplay.h"
#include "desktop/ScreenWindow.h"
#include "player/DesktopHands.h"
#include "player/ToolkitNotes.h"

#include <QApplication>
#include <QEvent>
#include <algorithm>
#include <array>
#include <exception>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace tallybrook::bench {

namespace fs = std::filesystem;

namespace {

/// The real windows, but for the boxes, which are answered at once.
class WindowsWithoutBoxes : public DesktopDisplay {
public:
    Answer messageBox(const MessageBox& box) override { return answerTo(box); }
};

/// Counts what is painted.
class PaintWatch : public QObject {
public:
    PaintWatch() { qApp->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        count_ += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    [[nodiscard]] int count() const { return count_; }

private:
    int count_ = 0;
};

/// The program on the real windows, drawn in memory, which a person uses with mouse and keys.
class WindowSession {
public:
    WindowSession(const fs::path& dataFolder, QSize size)
        : application_(display_, clock_, dataFolder), size_(size) {
        display_.attach(application_.program());
        display_.perform([this] { application_.start(); });
        application_.program().backups().finish();
    }

    /// Goes to a new game's frame screen.
    void beginGame() {
        click("mnuAddFromForm");
        type("txtEvent", "Thursday League");
        click("cmdUpdGames");
        type("txtStartLane", "13");
        click("cmdUpdFrame");
        if (size_.isValid())
            window().resize(size_);
        letFollow();
    }
    void returnToMain() { click("cmdRetMain"); }

    /// Milliseconds of the processor from a click, or from a press of the key where there is no such control,
    /// until all that it changes is painted.
    double untilPainted(const std::string& what) {
        Control* const control = screen().find(what);
        const int before = painted_.count();
        const Stopwatch watch;
        if (control != nullptr)
            hands::click(*display_.widgetOf(*control));
        else
            hands::pressKey(window(), what);
        letFollow();
        const double milliseconds = watch.seconds() * 1000;
        if (painted_.count() == before)
            throw std::runtime_error("nothing was painted behind " + what);
        return milliseconds;
    }

private:
    Screen& screen() { return *application_.program().screens.front(); }
    QWidget& window() { return *display_.windowOf(screen()); }

    void click(const std::string& name) {
        display_.perform([&] { person::click(*screen().find(name)); });
        letFollow();
    }
    void type(const std::string& name, const std::string& text) {
        display_.perform([&] { person::type(dynamic_cast<TextBox&>(*screen().find(name)), text); });
        letFollow();
    }

    /// Lets the window do what has been put off, and paints it now instead of when the display asks for it.
    void letFollow() {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();  // what the events of the window system have posted
        QEvent update(QEvent::UpdateRequest);
        QCoreApplication::sendEvent(&window(), &update);
        if (const std::exception_ptr failure = display_.takeFailure(); failure != nullptr)
            std::rethrow_exception(failure);
    }

    SettableClock clock_{kNow};
    WindowsWithoutBoxes display_;
    PaintWatch painted_;
    Application application_;
    QSize size_;
};

using Frame = std::span<const char* const>;

constexpr std::array kStrike{"optFirstYes", "Tab", "cmdNextFrame"};
constexpr std::array kSpare{"optFirstNo",
                            "chkFirstPinfall(3)",
                            "chkFirstPinfall(6)",
                            "chkFirstPinfall(10)",
                            "cmdFirstDone",
                            "optSecondYes",
                            "Tab",
                            "cmdNextFrame"};
constexpr std::array kOpenFrame{"optFirstNo",           "chkFirstPinfall(7)", "Tab",
                                "chkFirstPinfall(10)",  "cmdFirstDone",       "optSecondNo",
                                "chkSecondPinfall(10)", "cmdSecondDone",      "cmdNextFrame"};
constexpr std::array<Frame, 3> kFrames{kStrike, kSpare, kOpenFrame};

/// All but the last frame of a game, which leads away.
void enterFrames(WindowSession& session, std::vector<double>& times) {
    constexpr int kBeforeTenth = 9;
    for (int frame = 0; frame < kBeforeTenth; ++frame) {
        for (const char* const what : kFrames[static_cast<std::size_t>(frame) % kFrames.size()])
            times.push_back(session.untilPainted(what));
    }
}

/// Invalid where there is none.
QSize sizeIn(const std::string& text) {
    const std::size_t sign = text.find('x');
    return sign == std::string::npos
               ? QSize()
               : QSize(std::stoi(text.substr(0, sign)), std::stoi(text.substr(sign + 1)));
}

void clicks(State& state, const Place& place, const char* size) {
    for (auto round : state) {
        static_cast<void>(round);
        const std::string milliseconds =
            outputOf({"/proc/self/exe", "--clicks", place.folder.string(), size});
        state.counters["ms, p99"] = std::stod(milliseconds);
    }
}

}  // namespace

void frameClicks(State& state, const Place& place) {
    clicks(state, place, "");
}

void frameClicksLarge(State& state, const Place& place) {
    clicks(state, place, "2560x1440");
}

double slowestClicks(const fs::path& folder, const std::string& size) {
    constexpr int kGames = 30;
    passOverToolkitNotes();
    int count = 1;
    std::string name = "tallybrook";
    char* arguments = name.data();
    const QApplication application(count, &arguments);
    WindowSession session(folder, sizeIn(size));
    std::vector<double> times;
    for (int game = 0; game < kGames; ++game) {
        session.beginGame();
        enterFrames(session, times);
        session.returnToMain();
    }
    std::ranges::sort(times);
    return times[times.size() * 99 / 100];
}

}  // namespace tallybrook::bench
