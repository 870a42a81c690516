// A piece of work on a thread of its own, as the window lets it be done and waits for it.

#include "keeperwindow/Work.h"

#include <QTest>
#include <QThread>
#include <semaphore>
#include <vector>

#include <gtest/gtest.h>

namespace tallybrook::keeper {

namespace {

class Working : public testing::Test {
protected:
    static constexpr int kPatience = 60000;  // milliseconds

    /// Lets a task be done, and returns how it has ended.
    Outcome outcomeOf(const Work::Task& task) {
        Outcome outcome{.why = "it has not ended"};
        work.begin(task, [&](const Outcome& ended) { outcome = ended; });
        EXPECT_TRUE(QTest::qWaitFor([&] { return !work.isBusy(); }, kPatience));
        return outcome;
    }
    /// What the window is shown of a task after it has told of itself, and before it goes on.
    Stage stageAfter(const Work::Task& tell) {
        std::binary_semaphore told(0);
        std::binary_semaphore seen(0);
        Stage shown{.what = "nothing was shown"};
        work.onStage = [&](const Stage& stage) {
            if (told.try_acquire()) {
                shown = stage;
                seen.release();
            }
        };
        outcomeOf([&](Progress& progress) {
            tell(progress);
            told.release();
            seen.acquire();
        });
        work.onStage = {};
        return shown;
    }

    Work work;
};

TEST_F(Working, ShowsHowFarItIs) {
    const Stage stage = stageAfter([](Progress& progress) {
        progress.begin("Reading the games", 40);
        progress.reach(13);
    });
    EXPECT_EQ(stage.what, "Reading the games");
    EXPECT_EQ(stage.done, 13);
    EXPECT_EQ(stage.total, 40);
}

TEST_F(Working, BeginsEachPieceAnew) {
    const auto readHalf = [](Progress& progress) {
        progress.begin("Reading the games", 40);
        progress.reach(20);
    };
    stageAfter(readHalf);
    const Stage next = stageAfter([](Progress&) {});
    EXPECT_EQ(next.what, "");
    EXPECT_EQ(next.done, 0);
    EXPECT_EQ(next.total, 0);
    const Stage writing = stageAfter([&](Progress& progress) {
        readHalf(progress);
        progress.begin("Writing");
    });
    EXPECT_EQ(writing.what, "Writing");
    EXPECT_EQ(writing.done, 0);
    EXPECT_EQ(writing.total, 0);
}

TEST_F(Working, IsCancelledAloneOnceItIsAskedFor) {
    std::binary_semaphore begun(0);
    work.onStage = [&](const Stage&) {
        if (begun.try_acquire())
            work.cancel();
    };
    const Outcome cancelled = outcomeOf([&](Progress& progress) {
        begun.release();
        for (;;)
            progress.reach(0);
    });
    EXPECT_EQ(cancelled.status, ExitStatus::Cancelled);
    EXPECT_EQ(cancelled.why, "Cancelled. Nothing was changed.");
    EXPECT_EQ(outcomeOf([](Progress& progress) { progress.reach(1); }).status, ExitStatus::Done);
}

TEST_F(Working, TellsWhyItFailed) {
    const Outcome outcome = outcomeOf([](Progress&) { throw Refused(ExitStatus::BadInput, "no archive"); });
    EXPECT_EQ(outcome.status, ExitStatus::BadInput);
    EXPECT_EQ(outcome.why, "no archive");
}

TEST_F(Working, SpeaksToTheThreadOfTheWindowInOrder) {
    std::vector<std::string> said;
    const auto say = [&](const std::string& words) {
        EXPECT_EQ(QThread::currentThread(), work.thread());
        said.push_back(words);
    };
    bool wasBusyAtTheEnd = true;
    work.begin(
        [&](Progress&) {
            EXPECT_NE(QThread::currentThread(), work.thread());
            work.tell([&] { say("first"); });
            work.tell([&] { say("second"); });
        },
        [&](const Outcome&) {
            say("end");
            wasBusyAtTheEnd = work.isBusy();
        });
    EXPECT_TRUE(work.isBusy());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !work.isBusy(); }, kPatience));
    EXPECT_EQ(said, (std::vector<std::string>{"first", "second", "end"}));
    EXPECT_FALSE(wasBusyAtTheEnd) << "what follows could not begin";
}

TEST_F(Working, ShowsNothingAfterItsEnd) {
    outcomeOf([](Progress&) {});
    int shown = 0;
    work.onStage = [&](const Stage&) { ++shown; };
    QTest::qWait(250);  // as long as two looks
    EXPECT_EQ(shown, 0);
}

TEST(WorkOnItsWay, EndsWithTheWindow) {
    std::binary_semaphore begun(0);
    bool isDone = false;
    {
        Work work;
        work.begin(
            [&](Progress& progress) {
                begun.release();
                for (;;)
                    progress.reach(0);
            },
            [&](const Outcome&) { isDone = true; });
        begun.acquire();
    }
    QCoreApplication::processEvents();
    EXPECT_FALSE(isDone);
}

}  // namespace

}  // namespace tallybrook::keeper
