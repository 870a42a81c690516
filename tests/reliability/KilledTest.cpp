// The program is killed at any moment of a day with it. Every save that was done is there afterwards, what
// the handheld had is in the logbook or still on the handheld, and the program starts again.

#include "reliability/Contents.h"
#include "reliability/DataFolder.h"
#include "reliability/Operations.h"
#include "reliability/Visit.h"
#include "support/FileCalls.h"
#include "support/Rounds.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <random>
#include <vector>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

constexpr int kRounds = 200;
constexpr const char* kLogbook = "Tallybrook_DB.mdb";

/// The day as it goes when nobody is killed.
class WholeDay {
public:
    explicit WholeDay(const fs::path& ready) {
        const TemporaryFolder folder;
        copyDataFolder(ready, folder.path());
        int calls = 0;
        const FileCalls counting([&calls](const FileCall&) {
            ++calls;
            return 0;
        });
        WatchedVfs vfs;
        Visit visit(folder.path());
        visit.start();
        SaveHistory history(folder.path() / kLogbook);
        vfs.watch(&history);
        for (const auto& step : dayWithTheProgram()) {
            step(visit);
            savesDone_.push_back(history.saves());
        }
        vfs.watch(nullptr);
        EXPECT_EQ(visit.display.failuresTold, 0);
        states_ = history.states();
        calls_ = calls;
    }

    /// How many calls that touch files it takes.
    [[nodiscard]] int calls() const { return calls_; }

    /// Whether a logbook holds all that was saved in so many steps, and of the next step each save up to some
    /// one.
    [[nodiscard]] bool canHold(const Contents& contents, std::size_t steps) const {
        const std::size_t least = steps == 0 ? 0 : savesDone_[steps - 1];
        const std::size_t most = savesDone_[std::min(steps, savesDone_.size() - 1)];
        const auto from = states_.begin() + static_cast<std::ptrdiff_t>(least);
        const auto to = states_.begin() + static_cast<std::ptrdiff_t>(most) + 1;
        return std::find(from, to, contents) != to;
    }

private:
    std::vector<Contents> states_;
    std::vector<std::size_t> savesDone_;  // after each step
    int calls_ = 0;
};

/// Spends the day in a child process, which is killed before that call. Returns how many steps it has
/// reported.
class KilledDay {
public:
    KilledDay(const fs::path& data, int callsToLive) {
        std::array<int, 2> ends{};
        EXPECT_EQ(pipe(ends.data()), 0);
        const pid_t child = fork();
        if (child == 0)
            spendDay(data, callsToLive, ends[1]);
        close(ends[1]);
        for (char step = 0; read(ends[0], &step, 1) == 1;)
            ++stepsReported_;
        close(ends[0]);
        int status = 0;
        EXPECT_EQ(waitpid(child, &status, 0), child);
        wasKilled_ = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
        EXPECT_TRUE(wasKilled_ || (WIFEXITED(status) && WEXITSTATUS(status) == 0)) << status;
    }

    [[nodiscard]] std::size_t stepsReported() const { return stepsReported_; }
    [[nodiscard]] bool wasKilled() const { return wasKilled_; }

private:
    [[noreturn]] static void spendDay(const fs::path& data, int callsToLive, int report) {
        {
            const FileCalls dying([&callsToLive](const FileCall&) {
                if (callsToLive-- == 0)
                    kill(getpid(), SIGKILL);
                return 0;
            });
            Visit visit(data);
            visit.start();
            for (const auto& step : dayWithTheProgram()) {
                step(visit);
                tell(report);
            }
        }
        _exit(testing::Test::HasFailure() ? 1 : 0);
    }

    static void tell(int report) {
        const char done = '.';
        if (write(report, &done, 1) != 1)
            _exit(1);
    }

    std::size_t stepsReported_ = 0;
    bool wasKilled_ = false;
};

class Killed : public testing::Test {
protected:
    Killed() { makeLogbookWithHandheld(ready_.path()); }

    void killAndLook(const WholeDay& whole, int callsToLive) {
        SCOPED_TRACE("killed before call " + std::to_string(callsToLive));
        const TemporaryFolder folder;
        copyDataFolder(ready_.path(), folder.path());
        const KilledDay day(folder.path(), callsToLive);
        kills_ += day.wasKilled() ? 1 : 0;
        const Contents contents = contentsOf(folder.path() / kLogbook);
        EXPECT_TRUE(whole.canHold(contents, day.stepsReported()))
            << "after " << day.stepsReported() << " steps:\n"
            << textOf(contents);
        EXPECT_TRUE(isOnHandheld(folder.path()) || isImported(contents));
        expectStartsAgain(folder.path());
    }

    static void expectStartsAgain(const fs::path& data) {
        Visit visit(data);
        visit.start();
        EXPECT_EQ(visit.front(), "frmMain");
        EXPECT_EQ(visit.display.failuresTold, 0);
    }

    const FileCalls sparingTheDisk_{{}};
    TemporaryFolder ready_;
    int kills_ = 0;
};

TEST_F(Killed, LosesNoSaveThatWasDone) {
    const WholeDay whole(ready_.path());
    const int rounds = roundsOr(kRounds);
    std::mt19937 random(seedOr(7));
    std::uniform_int_distribution<int> moment(0, whole.calls());
    for (int round = 0; round < rounds && !HasFailure(); ++round)
        killAndLook(whole, moment(random));
    EXPECT_GT(kills_, rounds / 2);
}

}  // namespace

}  // namespace tallybrook::test
