#include "Desktop.h"
#include "Heard.h"
#include "runtime/EndProgram.h"
#include "support/SameText.h"

#include <QElapsedTimer>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QScopeGuard>
#include <QScreen>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace tallybrook::test {

namespace fs = std::filesystem;

namespace {

/// A text before and behind its first "|".
std::pair<std::string, std::string> cut(const std::string& text) {
    const std::size_t at = text.find('|');
    return {text.substr(0, at), text.substr(at + 1)};
}

}  // namespace

using DesktopDisplayTest = Desktop;

TEST_F(DesktopDisplayTest, ScreenIsAWindowInTheMiddle) {
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(window().windowTitle(), "A Test <b>Screen</b> - Tallybrook");
    EXPECT_EQ(window().objectName(), "frmMain");
    const QPoint middle = window().screen()->availableGeometry().center();
    EXPECT_LE((window().geometry().center() - middle).manhattanLength(), 4);
}

TEST_F(DesktopDisplayTest, SetsTheApplicationUp) {
    const QImage logo = QIcon(":/pictures/logo.svg").pixmap(32).toImage();
    EXPECT_FALSE(logo.isNull());
    EXPECT_EQ(QApplication::windowIcon().pixmap(32).toImage(), logo);
    EXPECT_FALSE(QApplication::quitOnLastWindowClosed()) << "a screen that waits may be the only one";
}

TEST_F(DesktopDisplayTest, WindowsComeAndGoWithTheirScreens) {
    display.perform([this] {
        program.screens.hide(screen());
        program.screens.load("frmOther");
    });
    EXPECT_FALSE(window().isVisible());
    const QPointer<QWidget> other = display.windowOf(screen<frmOther>("frmOther"));
    EXPECT_TRUE(other->isVisible());
    QTest::mouseClick(&widget(screen<frmOther>("frmOther").cmdBack), Qt::LeftButton);
    EXPECT_TRUE(window().isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(other.isNull());
}

/// Work until the pointer tells that it is long; given up after some seconds.
void workUntilBusy(DesktopDisplay& display) {
    QElapsedTimer given;
    given.start();
    while (QApplication::overrideCursor() == nullptr && !given.hasExpired(10'000))
        display.atWork();
}

TEST_F(DesktopDisplayTest, LongWorkShowsTheBusyPointerAndDrawsTheWindows) {
    bool isDrawn = false;
    display.perform([&] {
        display.atWork();
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);  // it has only begun
        QMetaObject::invokeMethod(
            &window(), [&isDrawn] { isDrawn = true; }, Qt::QueuedConnection);
        workUntilBusy(display);
        ASSERT_NE(QApplication::overrideCursor(), nullptr);
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    });
    EXPECT_TRUE(isDrawn);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(DesktopDisplayTest, WorkBetweenActionsIsNotTold) {
    display.perform([this] { workUntilBusy(display); });
    display.atWork();
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(DesktopDisplayTest, BoxInLongWorkHasTheUsualPointer) {
    hands.expect([](QDialog& box) {
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        box.accept();
    });
    display.perform([&] {
        workUntilBusy(display);
        ASSERT_NE(QApplication::overrideCursor(), nullptr);
        display.messageBox({.text = "Done."});
    });
}

TEST_F(DesktopDisplayTest, TimeThatABoxIsReadIsNoWork) {
    hands.expect([this](QDialog& box) {
        workUntilBusy(display);
        box.accept();
    });
    display.perform([&] {
        display.messageBox({.text = "Well?"});
        display.pointer(Pointer::Default);
        display.atWork();
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    });
}

TEST_F(DesktopDisplayTest, WindowIsRaisedAndRestored) {
    load("frmOther");
    window().showMinimized();
    display.perform([this] { program.screens.show(screen()); });
    EXPECT_FALSE(window().isMinimized());
    EXPECT_EQ(program.screens.front(), &screen());
}

TEST_F(DesktopDisplayTest, TitleBarsCloseIsTheScreens) {
    EXPECT_FALSE(window().close());
    EXPECT_EQ(log(), Lines{"close"});
    EXPECT_TRUE(window().isVisible());
}

TEST_F(DesktopDisplayTest, ProgramEndsInTheMiddleOfAClick) {
    const QPointer<QWidget> going = &window();
    screen().cmdGo.onClick = [] { throw EndProgram{}; };
    click(screen().cmdGo);
    EXPECT_TRUE(program.hasEnded());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(going.isNull());
    bool ran = false;
    display.perform([&] { ran = true; });
    EXPECT_FALSE(ran);
}

TEST_F(DesktopDisplayTest, HelpEndsWithTheProgram) {
    const auto isHelpSeen = [] {
        return std::ranges::any_of(QApplication::topLevelWidgets(), [](const QWidget* window) {
            return window->objectName() == "help" && window->isVisible();
        });
    };
    display.help(HelpTopic::Contents);
    EXPECT_TRUE(isHelpSeen());
    display.perform([] { throw EndProgram{}; });
    EXPECT_FALSE(isHelpSeen());
}

TEST_F(DesktopDisplayTest, UncaughtFailureIsShownAndEndsTheProgram) {
    hands.expect([](QDialog& window) {
        auto& box = dynamic_cast<QMessageBox&>(window);
        EXPECT_EQ(box.windowTitle(), "Tallybrook");
        EXPECT_EQ(box.text(), "Run-time error '13':\n\nType mismatch");
        EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
        box.close();
    });
    screen().cmdGo.onClick = [] { throw RunTimeError(error::kTypeMismatch); };
    click(screen().cmdGo);
    EXPECT_TRUE(program.hasEnded());
}

TEST_F(DesktopDisplayTest, WhatTheProgramDoesNotTakeIsKept) {
    screen().cmdGo.onClick = [] { throw std::logic_error("a fault"); };
    click(screen().cmdGo);
    const std::exception_ptr failure = display.takeFailure();
    ASSERT_NE(failure, nullptr);
    EXPECT_THROW(std::rethrow_exception(failure), std::logic_error);
    EXPECT_EQ(display.takeFailure(), nullptr);
}

TEST_F(DesktopDisplayTest, PointerIsBusyOrNot) {
    display.pointer(Pointer::Busy);
    display.pointer(Pointer::Busy);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    display.pointer(Pointer::Default);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(DesktopDisplayTest, PointerIsNotLeftBusy) {
    display.perform([&] {
        display.pointer(Pointer::Busy);
        display.perform([] {});
        EXPECT_NE(QApplication::overrideCursor(), nullptr);
    });
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

/// The desktop looks for the viewer beside the program, which is this test. One test for both, since there is
/// only one such place.
TEST_F(DesktopDisplayTest, ViewerIsStartedByItselfOrIsAMissingFile) {
    const fs::path viewer =
        fs::path(QCoreApplication::applicationDirPath().toStdString()) / "tallybrook-viewer";
    const fs::path seen = folder.path() / "seen";
    fs::remove(viewer);
    const auto back = qScopeGuard([before = fs::current_path()] { fs::current_path(before); });
    fs::current_path(folder.path());  // wherever the program was started
    try {
        display.startViewer(folder.path() / "Report.txt");
        FAIL() << "there is no viewer";
    } catch (const RunTimeError& failure) {
        EXPECT_EQ(failure.number(), error::kFileNotFound);
    }

    // It writes down its parent and all that it was given.
    std::ofstream(viewer) << "#!/bin/sh\n"
                          << "printf '%s|' $PPID $# \"$@\" > '" << seen.string() << "-half'\n"
                          << "mv '" << seen.string() << "-half' '" << seen.string() << "'\n";
    fs::permissions(viewer, fs::perms::owner_all);
    for (const char* const name : {"Report.txt", "League Night  14.txt", "\"q\" 'q' `x`.txt",
                                   "$(x) $HOME ;&|<>*?!\\.txt", "-n", "Jos\xC3\xA9\n.txt", ""}) {
        fs::remove(seen);
        display.startViewer(name);
        ASSERT_TRUE(QTest::qWaitFor([&] { return fs::exists(seen); })) << name;
        const auto [parent, rest] = cut(bytesOf(seen));
        EXPECT_NE(parent, std::to_string(QCoreApplication::applicationPid()))
            << "it would end with the program";
        EXPECT_EQ(rest, "1|" + std::string(name) + "|");
    }
    fs::remove(viewer);
}

// --- Waiting for a record ----------------------------------------------------------------------------------

class WaitingTest : public Desktop {
protected:
    /// Has the screen's procedure wait until it is given up, or 500 tries are over.
    void wait() {
        display.perform([this] {
            for (tries = 1; tries <= 500; ++tries)
                display.retrying("A Screen, A_Procedure.", tries);
        });
    }
    static QDialog* notice() { return qobject_cast<QDialog*>(QApplication::activeModalWidget()); }
    /// Once the notice is up, clicks on one of its buttons.
    void clickOnNotice(const QString& caption) {
        QObject::connect(&timer, &QTimer::timeout, &timer, [this, caption] {
            if (notice() == nullptr)
                return;
            timer.stop();
            for (QPushButton* const button : notice()->findChildren<QPushButton*>()) {
                if (button->text() == caption)
                    QTest::mouseClick(button, Qt::LeftButton);
            }
        });
        timer.start(1);
    }

    QTimer timer;
    int tries = 0;
};

TEST_F(WaitingTest, UserMayCloseTheScreen) {
    load("frmOther");
    program.waiting = &screen();
    clickOnNotice("Close Screen");
    wait();
    EXPECT_LT(tries, 500);
    EXPECT_EQ(program.screens.find("frmMain"), nullptr);
    EXPECT_EQ(program.screens.front(), program.screens.find("frmOther"));
    EXPECT_EQ(notice(), nullptr);
}

TEST_F(WaitingTest, LastLoadedScreenIsClosedWhereNobodyHasToldWhichWaits) {
    load("frmOther");
    clickOnNotice("Close Screen");
    wait();
    EXPECT_EQ(program.screens.find("frmOther"), nullptr);
}

TEST_F(WaitingTest, ClosingTheOnlyScreenEndsTheProgram) {
    clickOnNotice("Close Screen");
    wait();
    EXPECT_TRUE(program.hasEnded());
}

TEST_F(WaitingTest, UserMayEndTheProgram) {
    load("frmOther");
    clickOnNotice("End Tallybrook");
    wait();
    EXPECT_TRUE(program.hasEnded());
    EXPECT_EQ(notice(), nullptr);
}

TEST_F(WaitingTest, NoticeTellsWhatIsWaitedForAndStays) {
    bool wasSeen = false;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        if (notice() == nullptr || std::exchange(wasSeen, true))
            return;
        EXPECT_EQ(notice()->findChild<QLabel*>()->text(),
                  "Tallybrook is waiting for a record that is not there.");
        QTest::keyClick(notice(), Qt::Key_Escape);
        QTest::keyClick(notice(), Qt::Key_Return);
        notice()->close();
        EXPECT_TRUE(notice()->isVisible());
    });
    timer.start(1);
    display.perform([this] {
        for (tries = 1; tries <= 20; ++tries)
            display.retrying("A Screen, A_Procedure.", tries);
    });
    EXPECT_TRUE(wasSeen);
    EXPECT_EQ(notice(), nullptr);
    EXPECT_FALSE(program.hasEnded());
}

TEST_F(WaitingTest, NoticeIsAnnounced) {
    const Heard heard;
    display.perform([this] {
        for (tries = 1; tries <= 20; ++tries)
            display.retrying("A Screen, A_Procedure.", tries);
        ASSERT_NE(notice(), nullptr);
        const QAccessibleInterface& told = *QAccessible::queryAccessibleInterface(notice());
        EXPECT_EQ(told.role(), QAccessible::Dialog);
        EXPECT_EQ(told.text(QAccessible::Name), "Tallybrook");
        EXPECT_EQ(told.text(QAccessible::Description),
                  "Tallybrook is waiting for a record that is not there.");
        EXPECT_EQ(Heard::take(QAccessible::Alert), std::vector<std::string>{"retryNotice"});
    });
}

TEST_F(WaitingTest, ShortWaitShowsNothing) {
    DesktopDisplay patient(DesktopHabits{});  // as people have it: for seconds
    for (const int attempt : {1, 2}) {
        patient.retrying("A Screen, A_Procedure.", attempt);
        EXPECT_EQ(notice(), nullptr);
    }
}

TEST_F(WaitingTest, EachWaitIsGivenItsTime) {
    DesktopDisplay patient({.patience = std::chrono::milliseconds{400}});
    patient.attach(program);
    for (tries = 1; tries <= 500 && notice() == nullptr; ++tries)
        patient.retrying("A Screen, A_Procedure.", tries);
    ASSERT_NE(notice(), nullptr);
    patient.retrying("A Screen, Another_Procedure.", 1);
    EXPECT_EQ(notice(), nullptr);
}

TEST_F(WaitingTest, NoticeGoesWhenABoxComes) {
    answerNext(Answer::OK);
    display.perform([this] {
        for (tries = 1; tries <= 20; ++tries)
            display.retrying("A Screen, A_Procedure.", tries);
        ASSERT_NE(notice(), nullptr);
        display.messageBox({.text = "Found."});
    });
}

}  // namespace tallybrook::test
