// Starts the program on its real windows as the program itself does, declines the check that it offers, and
// ends as soon as the main menu is painted:
//
//     tallybrook-start DATA    the program; it writes the processor's time until then, and when the first
//     window was
//                              painted by the clock that only runs forward, both in seconds
//     tallybrook-start         the toolkit alone, with one line of text in a window; it writes the same
//
// It is linked with no more than the program is, since loading takes a good part of a start.

#include "../Stopwatch.h"
#include "app/Application.h"
#include "desktop/DesktopDisplay.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QMessageBox>
#include <QSettings>
#include <QTimer>
#include <exception>
#include <filesystem>
#include <iostream>
#include <optional>

namespace {

using namespace tallybrook;

/// Sees what is painted, and declines each box as soon as a person could.
class FirstVisitor : public QObject {
public:
    FirstVisitor() { qApp->installEventFilter(this); }

    bool eventFilter(QObject* painted, QEvent* event) override {
        const auto* const widget = event->type() == QEvent::Paint ? qobject_cast<QWidget*>(painted) : nullptr;
        if (widget == nullptr)
            return false;
        if (!firstPaint_)
            firstPaint_ = bench::secondsOf(bench::Time::Wall);
        if (auto* const box = qobject_cast<QMessageBox*>(widget->window()); box == nullptr)
            hasSeenScreen_ = true;
        else if (painted == box)
            QTimer::singleShot(0, box, [box] { box->button(QMessageBox::No)->click(); });
        return false;
    }

    /// Until a window that is no box is painted.
    void stay() const {
        while (!hasSeenScreen_)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    void tell() const {
        std::cout << std::fixed << bench::secondsOf(bench::Time::Process) << ' ' << firstPaint_.value()
                  << '\n';
    }

private:
    std::optional<double> firstPaint_;
    bool hasSeenScreen_ = false;
};

void startProgram(const std::filesystem::path& dataFolder) {
    FirstVisitor visitor;
    QSettings settings(QString::fromStdString(dataFolder.string() + "-windows.conf"), QSettings::IniFormat);
    const SystemClock clock;
    DesktopDisplay display({.settings = &settings});
    Application program(display, clock, dataFolder);
    display.attach(program.program());
    display.perform([&] { program.start(); });
    visitor.stay();
    if (const std::exception_ptr failure = display.takeFailure(); failure != nullptr)
        std::rethrow_exception(failure);
    visitor.tell();
}

void startToolkit() {
    FirstVisitor visitor;
    QLabel window(QStringLiteral("Tallybrook"));
    window.show();
    visitor.stay();
    visitor.tell();
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    try {
        if (argc > 1)
            startProgram(argv[1]);
        else
            startToolkit();
        return 0;
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return 1;
    }
}
