// The program is killed at any moment of a day with it. Every save that was done is there afterwards, what
// the handheld had is in the logbook or still on the handheld, and the program starts again.

#include "reliability/Contents.h"
#include "reliability/Operations.h"
#include "reliability/Visit.h"
#include "support/DataFolder.h"
#include "support/FileCalls.h"
#include "support/Moments.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace tallybrook::test {

namespace {

namespace fs = std::filesystem;

constexpr const char* kLogbook = "Tallybrook_DB.mdb";

/// What the logbook holds at the start of the day, and after each save.
std::vector<Contents> spendDay(const fs::path& data,
                               const std::function<void(std::size_t savesDone)>& afterStep) {
    WatchedVfs vfs;
    Visit visit(data);
    visit.start();
    SaveHistory history(data / kLogbook);
    vfs.watch(&history);
    for (const auto& step : dayWithTheProgram()) {
        step(visit);
        afterStep(history.saves());
    }
    vfs.watch(nullptr);
    EXPECT_EQ(visit.display.failuresTold, 0);
    return history.states();
}

/// The files in a data folder, and how large they are, but for the backups, which a thread of their own
/// makes.
std::map<fs::path, std::uintmax_t> sizesIn(const fs::path& data) {
    std::map<fs::path, std::uintmax_t> sizes;
    for (const auto& entry : fs::recursive_directory_iterator(data)) {
        const fs::path file = entry.path().lexically_relative(data);
        if (entry.is_regular_file() && *file.begin() != "Backups")
            sizes[file] = entry.file_size();
    }
    return sizes;
}

/// A day with the program, and what a kill in any of its moments leaves.
class Day {
public:
    explicit Day(const fs::path& data) {
        moments_.keep(data, [&] {
            states_ = spendDay(data, [this](std::size_t savesDone) {
                savesUntil_.push_back(static_cast<std::ptrdiff_t>(savesDone));
                momentsUntil_.push_back(moments_.size());
            });
        });
    }

    [[nodiscard]] const Moments& moments() const { return moments_; }

    /// Whether a logbook holds all that was saved by the steps that were done in that moment, and of the next
    /// step each save up to some one.
    [[nodiscard]] bool canHold(const Contents& contents, std::size_t moment) const {
        const auto steps = std::ranges::upper_bound(momentsUntil_, moment) - momentsUntil_.begin();
        const auto from = states_.begin() + savesUntil_.at(static_cast<std::size_t>(steps));
        const auto to =
            states_.begin() +
            savesUntil_.at(std::min(static_cast<std::size_t>(steps) + 1, savesUntil_.size() - 1)) + 1;
        return std::find(from, to, contents) != to;
    }

private:
    Moments moments_;
    std::vector<Contents> states_;
    std::vector<std::ptrdiff_t> savesUntil_{0};  // the start, and the end of each step
    std::vector<std::size_t> momentsUntil_;      // the end of each step
};

class Killed : public testing::Test {
protected:
    Killed() { makeLogbookWithHandheld(ready_.path()); }

    /// The data folder before the day.
    void makeReady(const TemporaryFolder& folder) const { copyDataFolder(ready_.path(), folder.path()); }

    static void expectStartsAgain(const fs::path& data) {
        Visit visit(data);
        visit.start();
        EXPECT_EQ(visit.front(), "frmMain");
        EXPECT_EQ(visit.display.failuresTold, 0);
    }

    const FileCalls sparingTheDisk_{{}};
    TemporaryFolder ready_;
};

TEST_F(Killed, LosesNoSaveThatWasDone) {
    const TemporaryFolder folder;
    makeReady(folder);
    const Day day(folder.path());
    EXPECT_GT(day.moments().size(), 200U);
    for (std::size_t moment = 0; moment < day.moments().size() && !HasFailure(); ++moment) {
        SCOPED_TRACE("killed before change " + std::to_string(moment));
        const fs::path& left = day.moments()[moment];
        const Contents contents = contentsOf(left / kLogbook);
        EXPECT_TRUE(day.canHold(contents, moment)) << textOf(contents);
        EXPECT_TRUE(isOnHandheld(left) || isImported(contents));
        expectStartsAgain(left);
    }
}

TEST_F(Killed, LeavesWhatOthersSeeOfItsFiles) {
    const TemporaryFolder folder;
    makeReady(folder);
    const Day day(folder.path());
    for (std::size_t moment = 7; moment < day.moments().size() && !HasFailure(); moment += 80) {
        SCOPED_TRACE("killed before change " + std::to_string(moment));
        const TemporaryFolder killed;
        makeReady(killed);
        killBefore(moment, [&] { spendDay(killed.path(), [](std::size_t) {}); });
        const fs::path& seen = day.moments()[moment];
        EXPECT_EQ(sizesIn(killed.path()), sizesIn(seen));
        EXPECT_EQ(contentsOf(killed.path() / kLogbook), contentsOf(seen / kLogbook));
    }
}

}  // namespace

}  // namespace tallybrook::test
