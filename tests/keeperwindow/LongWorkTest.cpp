// Work that takes its time: what the window shows meanwhile, and what becomes of it when it is given up.

#include "Window.h"
#include "desktop/Heard.h"

#include <QMenuBar>
#include <atomic>
#include <fstream>
#include <semaphore>

namespace tallybrook::keeper {

namespace {

/// A clock that lets whoever asks it next wait.
class HeldClock : public Clock {
public:
    explicit HeldClock(DateTime now) : now_(now) {}
    [[nodiscard]] DateTime now() const override {
        if (holds_.exchange(false))
            goesOn_.acquire();
        return now_;
    }
    void hold() { holds_ = true; }
    void letGoOn() { goesOn_.release(); }

private:
    DateTime now_;
    mutable std::atomic<bool> holds_ = false;
    mutable std::binary_semaphore goesOn_{0};
};

class LongWork : public Window {
protected:
    LongWork() {
        test::deleteEvent(data, 1);
        before = test::rowsOf(logbookIn(data));
        window = std::make_unique<KeeperWindow>(data, heldClock);
        window->show();
        waitForWork();
    }

    /// Restores the backup, up to the moment in which the time is asked for.
    void restoreAsFarAsTheBackup() {
        heldClock.hold();
        expectBox("Put this backup in the place of your logbook?", "Restore");
        button("Restore").click();
        ASSERT_TRUE(QTest::qWaitFor([this] { return isShown("Backing up the present logbook..."); }, 60000));
    }
    void goOn() {
        heldClock.letGoOn();
        waitForWork();
        waitForWork();
    }

    HeldClock heldClock{makeDate(2026, 11, 23)};
    std::vector<std::string> before;
};

TEST_F(LongWork, IsShownAndCannotBeDoneTwice) {
    restoreAsFarAsTheBackup();
    auto& bar = part<QProgressBar>();
    EXPECT_TRUE(bar.isVisible());
    EXPECT_EQ(bar.maximum(), 0) << "nobody knows how long this takes";
    EXPECT_TRUE(button("Cancel").isVisible());
    events().topLevelItem(0)->setCheckState(0, Qt::Checked);
    EXPECT_FALSE(button("Add 1 Ticked Event").isEnabled());
    EXPECT_FALSE(button("Restore").isEnabled());
    for (const QAction* const action : window->menuBar()->actions().front()->menu()->actions())
        EXPECT_EQ(action->isEnabled(), action->isSeparator() || action->text() == "&Close")
            << action->text().toStdString();
    window->refresh();
    EXPECT_TRUE(isShown("Backing up the present logbook..."));
    const test::Heard heard;
    goOn();
    const std::string done =
        "Restored, checked and compared: the logbook holds 2 events, 4 games and 40 frames.";
    EXPECT_EQ(test::Heard::take(QAccessible::Alert), std::vector{done}) << "it is read aloud";
    EXPECT_FALSE(bar.isVisible());
    EXPECT_FALSE(button("Cancel").isVisible());
    EXPECT_TRUE(button("Restore").isEnabled());
    EXPECT_TRUE(
        isShown("Restored, checked and compared: the logbook holds 2 events, 4 games and 40 frames."));
}

TEST_F(LongWork, ThatIsCancelledChangesNothing) {
    restoreAsFarAsTheBackup();
    button("Cancel").click();
    goOn();
    EXPECT_TRUE(isShown("Cancelled. Nothing was changed."));
    EXPECT_FALSE(isShown("Backing up"));
    EXPECT_FALSE(button("Cancel").isVisible());
    EXPECT_EQ(test::rowsOf(logbookIn(data)), before);
}

TEST_F(LongWork, ThatFailsIsNoLongerShown) {
    restoreAsFarAsTheBackup();
    fs::remove_all(data / "Backups");
    std::ofstream(data / "Backups") << "in the way";
    expectBox(
        "The backup could not be restored.\n\nThe present logbook could neither be backed up nor copied",
        "OK");
    goOn();
    EXPECT_FALSE(isShown("Backing up the present logbook..."));
    EXPECT_EQ(test::rowsOf(logbookIn(data)), before);
}

TEST_F(LongWork, IsGivenUpWhenTheWindowIsClosed) {
    restoreAsFarAsTheBackup();
    window->close();
    goOn();
    EXPECT_EQ(test::rowsOf(logbookIn(data)), before);
}

}  // namespace

}  // namespace tallybrook::keeper
